#pragma once

#include <QWidget>

#include <functional>

/// Lets what was done be told to the views, and painted.
void paint();

/// Until what `act` does is painted.
double milliseconds(const std::function<void()>& act);

/// Prints median and longest of many rounds, of something done in a window; `back` brings what was done back and is
/// not measured.
void measure(
    const char* window, const char* what, const std::function<void(int round)>& act,
    const std::function<void()>& back = [] {});

/// A key as Qt codes it, of a letter, a digit or the space bar with its character.
void press(QWidget& on, int key);
