// The dialog that a history is chosen in, over files as they lie on the disk.

#include "FileDialogs.h"

#include <QDateTime>
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <gtest/gtest.h>

namespace qvm::test {
namespace {

/// A file of this name, written on that day of March.
void makeFile(const QTemporaryDir& folder, const QString& name, int day) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QFile::WriteOnly));
    file.write("x\n");
    ASSERT_TRUE(file.flush()); // or its end would set the time anew
    ASSERT_TRUE(file.setFileTime(QDateTime(QDate(2026, 3, day), QTime(10, 0)), QFileDevice::FileModificationTime));
}

/// The dialog over the folder once it lists so many files; `look` sees its list, then it is cancelled.
void withList(const QTemporaryDir& folder, int files, const std::function<void(QTreeView& list)>& look) {
    bool seen = false;
    int polls = 0;
    int whole = 0; // how often the list had all its files: it is sorted a moment later
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            return;
        }
        auto* list = dialog->findChild<QTreeView*>(QStringLiteral("treeView"));
        if (list != nullptr && list->model()->rowCount(list->rootIndex()) == files && ++whole > 20) {
            seen = true;
            look(*list);
        }
        if (seen || ++polls > 1000) {
            poll.stop();
            dialog->reject();
        }
    });
    poll.start(20);
    EXPECT_EQ(ui::openFile({.Title = "T",
                            .Filter = "Vorgangsdateien (*.HST)|*.HST|",
                            .Directory = folder.path().toStdString(),
                            .NewestFirst = true}),
              std::nullopt);
    EXPECT_TRUE(seen);
}

TEST(Open_File, lists_the_newest_first_with_whole_names) {
    const QTemporaryDir folder;
    makeFile(folder, QStringLiteral("H_20260302_100000_Werkstatt.HST"), 2);
    makeFile(folder, QStringLiteral("H_20260304_100000_Serverraum Nord1.HST"), 4);
    makeFile(folder, QStringLiteral("Z.HST"), 1);
    makeFile(folder, QStringLiteral("H_20260303_100000_Tor.HST"), 3);
    withList(folder, 4, [](QTreeView& list) {
        QStringList names;
        int widest = 0;
        for (int row = 0; row < 4; ++row) {
            names += list.model()->index(row, 0, list.rootIndex()).data().toString();
            widest =
                std::max(widest, list.fontMetrics().horizontalAdvance(names.constLast()) + list.iconSize().width());
        }
        EXPECT_EQ(names, (QStringList{QStringLiteral("H_20260304_100000_Serverraum Nord1.HST"),
                                      QStringLiteral("H_20260303_100000_Tor.HST"),
                                      QStringLiteral("H_20260302_100000_Werkstatt.HST"), QStringLiteral("Z.HST")}));
        EXPECT_TRUE(list.isVisible());
        EXPECT_GT(list.columnWidth(0), widest);
        EXPECT_LE(list.columnWidth(0), list.viewport()->width());
    });
}

/// Saves over a file that is there; gives whether the dialog asked back.
bool asksBack(const QTemporaryDir& folder, bool appends) {
    bool asked = false;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget* front = QApplication::activeModalWidget();
        if (auto* dialog = qobject_cast<QFileDialog*>(front)) {
            dialog->findChild<QLineEdit*>()->setText(QStringLiteral("there.CSV"));
            QMetaObject::invokeMethod(dialog, "accept", Qt::QueuedConnection);
        } else if (auto* question = qobject_cast<QMessageBox*>(front)) {
            asked = true;
            question->button(QMessageBox::Yes)->click();
        }
    });
    poll.start(20);
    EXPECT_EQ(
        ui::saveFile(
            {.Title = "T", .Filter = "x (*.CSV)|*.CSV|", .Directory = folder.path().toStdString(), .Appends = appends}),
        folder.filePath(QStringLiteral("there.CSV")).toStdString());
    return asked;
}

TEST(Save_File, asks_back_for_a_file_that_is_there_unless_it_is_added_to) {
    const QTemporaryDir folder;
    makeFile(folder, QStringLiteral("there.CSV"), 1);
    EXPECT_TRUE(asksBack(folder, false));
    EXPECT_FALSE(asksBack(folder, true));
}

} // namespace
} // namespace qvm::test
