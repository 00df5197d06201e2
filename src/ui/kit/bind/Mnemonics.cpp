#include "Mnemonics.h"

#include "Bind.h"
#include "TextEdge.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionEvent>
#include <QEvent>
#include <QSet>
#include <QWidget>

namespace qvm::ui {
namespace {

/// Without mnemonics, "&&" as "&".
QString stripped(const QString& text) {
    QString out;
    for (qsizetype n = 0; n < text.size(); ++n) {
        if (text[n] == QLatin1Char('&') && n + 1 < text.size()) {
            ++n;
        }
        out += text[n];
    }
    return out;
}

QString escaped(const QString& text) {
    return QString(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

/// Place of the letter to be underlined, -1 when all are taken.
qsizetype freeLetter(const QString& text, const QSet<QChar>& taken) {
    for (const bool wordStarts : {true, false}) {
        for (qsizetype n = 0; n < text.size(); ++n) {
            const bool starts = n == 0 || !text[n - 1].isLetterOrNumber();
            if (text[n].isLetterOrNumber() && (starts || !wordStarts) && !taken.contains(text[n].toLower())) {
                return n;
            }
        }
    }
    return -1;
}

class MnemonicKeeper : public QObject {
public:
    explicit MnemonicKeeper(QWidget* menu) : QObject(menu), menu_(menu) {
        menu->installEventFilter(this);
        assign();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        const bool changed = event->type() == QEvent::ActionAdded || event->type() == QEvent::ActionChanged;
        if (changed && !assigning_) {
            assign();
        }
        return QObject::eventFilter(watched, event);
    }

private:
    void assign() {
        assigning_ = true;
        QSet<QChar> taken;
        for (QAction* action : menu_->actions()) {
            const QString text = stripped(action->text());
            if (action->isSeparator() || text.isEmpty()) {
                continue;
            }
            const qsizetype at = freeLetter(text, taken);
            QString marked = escaped(text);
            if (at >= 0) {
                taken.insert(text[at].toLower());
                marked = escaped(text.left(at)) + QLatin1Char('&') + escaped(text.mid(at));
            }
            if (action->text() != marked) {
                action->setText(marked);
            }
        }
        assigning_ = false;
    }

    QWidget* menu_;
    bool assigning_ = false;
};

} // namespace

void uniqueMnemonics(QWidget* menu) {
    new MnemonicKeeper(menu);
}

void firstLetterMnemonic(Button& model, QAbstractButton* widget) {
    watch(model.Text, widget, [&model, widget] {
        const QString caption = captionOf(model.Text());
        widget->setText(caption.isEmpty() ? caption : QLatin1Char('&') + caption);
        widget->setAccessibleName(toQt(model.Text()));
    });
}

} // namespace qvm::ui
