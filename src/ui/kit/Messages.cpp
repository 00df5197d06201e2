#include "Messages.h"

#include "Bind.h"
#include "FrontWindow.h"
#include "TextEdge.h"
#include "Theme.h"
#include "Worttafel.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>
#include <utility>
#include <vector>

namespace qvm::ui {
namespace {

struct ButtonRow {
    Answer Meaning;
    QMessageBox::StandardButton Button;
};

/// How many messages wait at the most behind an open box.
constexpr std::size_t MostWaiting = 8;

/// In the order in which DefaultButton counts.
std::vector<ButtonRow> buttonsOf(Buttons choice) {
    const ButtonRow ok{Answer::Ok, QMessageBox::Ok}, cancel{Answer::Cancel, QMessageBox::Cancel};
    const ButtonRow yes{Answer::Yes, QMessageBox::Yes}, no{Answer::No, QMessageBox::No};
    switch (choice) {
    case Buttons::OkCancel:
        return {ok, cancel};
    case Buttons::YesNo:
        return {yes, no};
    case Buttons::YesNoCancel:
        return {yes, no, cancel};
    case Buttons::Ok:
        break;
    }
    return {ok};
}

QMessageBox::Icon iconOf(Icon sign) {
    switch (sign) {
    case Icon::Information:
        return QMessageBox::Information;
    case Icon::Exclamation:
        return QMessageBox::Warning;
    case Icon::Question:
        return QMessageBox::Question;
    case Icon::None:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The arrow over the hourglass, while a box can be answered.
class ArrowCursor {
public:
    ArrowCursor() : needed_(QGuiApplication::overrideCursor() != nullptr) {
        if (needed_) {
            QGuiApplication::setOverrideCursor(Qt::ArrowCursor);
        }
    }
    ~ArrowCursor() {
        if (needed_) {
            QGuiApplication::restoreOverrideCursor();
        }
    }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;

private:
    bool needed_;
};

/// Lets a box be left by Escape or its frame without an answer, which the toolkit would take for the No button.
class LeftWithoutAnswer : public QObject {
public:
    explicit LeftWithoutAnswer(QMessageBox& box) : QObject(&box), box_(box) { box.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        const bool escape =
            event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Cancel);
        if (!escape && event->type() != QEvent::Close) {
            return false;
        }
        box_.done(QDialog::Rejected);
        return true;
    }

private:
    QMessageBox& box_;
};

} // namespace

QString MessageBoxes::text(Answer button) const {
    const std::string language = kern_ != nullptr ? kern_->Config.Sprache : "English";
    switch (button) {
    case Answer::Yes:
        return word(Word::Yes, language);
    case Answer::No:
        return word(Word::No, language);
    case Answer::Ok:
    case Answer::Cancel:
        break;
    }
    const bool ok = button == Answer::Ok;
    const QString fromFile = kern_ != nullptr ? toQt(kern_->Zeile(ok ? Line::Ok : Line::Cancel)) : QString();
    return !fromFile.isEmpty() ? fromFile : ok ? QStringLiteral("OK") : QStringLiteral("Cancel");
}

void MessageBoxes::fill(QMessageBox& box, const Message& message) const {
    box.setObjectName(QStringLiteral("MessageBox"));
    box.setWindowIcon(programIcon());
    box.setWindowTitle(toQt(message.Title));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    // Line breaks come in both orders, and each is one line.
    QString shown = toQt(message.Text);
    if (!message.About.empty()) {
        shown += QLatin1Char('\n') + toQt(message.About);
    }
    box.setText(shown.remove(QLatin1Char('\r')));
    box.setIcon(iconOf(message.Sign));
    int number = 0;
    for (const auto& [meaning, standard] : buttonsOf(message.Choice)) {
        QPushButton* button = box.addButton(standard);
        button->setText(text(meaning));
        nameWidget(button, QStringLiteral("MessageBox.Button%1").arg(number + 1),
                   text(meaning).remove(QLatin1Char('&')));
        button->setIcon({});
        box.setEscapeButton(button);
        if (++number == 1 || number == message.DefaultButton) {
            box.setDefaultButton(button);
        }
    }
}

Answer MessageBoxes::show(const Message& message) {
    if (!open_.empty() && message.Choice == Buttons::Ok) {
        const auto told = [&message](const std::vector<Message>& list) {
            return std::find(list.begin(), list.end(), message) != list.end();
        };
        if (!told(open_) && !told(waiting_) && waiting_.size() < MostWaiting) {
            waiting_.push_back(message);
        }
        return Answer::Ok;
    }
    const Answer answer = showNow(message);
    while (open_.empty() && !waiting_.empty()) {
        const Message next = waiting_.front();
        waiting_.erase(waiting_.begin());
        showNow(next);
    }
    return answer;
}

Answer MessageBoxes::showNow(const Message& message) {
    const ArrowCursor arrow;
    open_.push_back(message);
    QMessageBox box(frontWindow());
    fill(box, message);
    new LeftWithoutAnswer(box); // the box owns it
    box.exec();
    open_.pop_back();
    for (const auto& [meaning, standard] : buttonsOf(message.Choice)) {
        if (box.clickedButton() != nullptr && box.clickedButton() == box.button(standard)) {
            return meaning;
        }
    }
    return message.Choice == Buttons::Ok ? Answer::Ok : Answer::Cancel;
}

} // namespace qvm::ui
