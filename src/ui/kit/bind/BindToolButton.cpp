#include "Bind.h"
#include "TextEdge.h"

#include <QAction>
#include <QEvent>
#include <QKeyEvent>
#include <QToolBar>
#include <QToolButton>

#include <cstdlib>

namespace qvm::ui {
namespace {

/// In two lines of about the same length, cut at a blank.
QString inTwoLines(const QString& text) {
    constexpr int Short = 12;
    if (text.size() <= Short) {
        return text;
    }
    const auto middle = static_cast<int>(text.size() / 2);
    int best = -1;
    for (int n = 0; n < static_cast<int>(text.size()); ++n) {
        if (text[n] == QLatin1Char(' ') && (best < 0 || std::abs(n - middle) < std::abs(best - middle))) {
            best = n;
        }
    }
    return best < 0 ? text : text.left(best) + QLatin1Char('\n') + text.mid(best + 1);
}

/// As soon as one caption of the bar takes two lines all do, so that the icons stand in one row.
void alignCaptions(const QToolBar& bar) {
    bool two = false;
    for (const QAction* action : bar.actions()) {
        two = two || action->iconText().trimmed().contains(QLatin1Char('\n'));
    }
    for (QAction* action : bar.actions()) {
        const QString text = action->iconText().trimmed();
        action->setIconText(two && !text.isEmpty() && !text.contains(QLatin1Char('\n')) ? text + QStringLiteral("\n ")
                                                                                        : text);
    }
}

/// Return presses a tool button as space does.
class ReturnPresses : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                static_cast<QToolButton*>(watched)->click();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

constexpr const char* WaitingProperty = "waiting";

} // namespace

void pressByReturn(QToolButton* button) {
    button->installEventFilter(new ReturnPresses(button));
}

void setWaiting(QToolButton* button, const QString& why) {
    button->setProperty(WaitingProperty, !why.isEmpty());
    button->setAccessibleDescription(why);
    button->update();
}

bool isWaiting(const QWidget* widget) {
    return widget != nullptr && widget->property(WaitingProperty).toBool();
}

QToolButton* addToolButton(ToolButton& model, QToolBar* bar, std::function<void(std::string_view)> onClick) {
    const QString name = bar->objectName() + QLatin1Char('.') + toQt(model.Key);
    QAction* action = bar->addAction(toolIcon(model.Key), QString());
    action->setObjectName(name + QStringLiteral(".Action"));
    auto* button = static_cast<QToolButton*>(bar->widgetForAction(action));
    nameWidget(button, name);
    button->setFocusPolicy(Qt::TabFocus);
    pressByReturn(button);
    // A screen reader that lists the bar would find a hidden key by its name.
    const auto show = [&model, bar, action, button] {
        const QString tip = toQt(model.Visible ? model.Tip() : std::string());
        const QString why = toQt(model.Warum());
        action->setText(captionOf(model.Visible ? model.Tip() : std::string()));
        action->setIconText(inTwoLines(action->text()));
        action->setToolTip(why.isEmpty() ? tip : tip + QLatin1Char('\n') + why);
        button->setAccessibleName(tip);
        setWaiting(button, why);
        action->setVisible(model.Visible);
        alignCaptions(*bar);
    };
    watch(model.Tip, action, show);
    watch(model.Visible, action, show);
    watch(model.Warum, action, show);
    watch(model.Enabled, action, [&model, action] { action->setEnabled(model.Enabled); });
    QObject::connect(action, &QAction::triggered, action, [&model, click = std::move(onClick)] {
        if (click) {
            click(model.Key);
        }
    });
    return button;
}

} // namespace qvm::ui
