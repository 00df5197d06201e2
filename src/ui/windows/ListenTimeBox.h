#pragma once

#include "Bind.h"
#include "Controls.h"
#include "TextEdge.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QString>
#include <QVBoxLayout>

#include <utility>

namespace qvm::ui {

/// A frame whose caption says what it is for; it is grey while nothing in it has an effect.
inline QGroupBox* captionedFrame(Label& model, const QString& name, QWidget* parent) {
    auto* group = new QGroupBox(parent);
    nameWidget(group, name);
    watch(model.Text, group, [&model, group] {
        group->setTitle(toQt(model.Text()));
        group->setAccessibleName(group->title());
    });
    watch(model.Enabled, group, [&model, group] { group->setEnabled(model.Enabled); });
    return group;
}

/// The listen time of a unit, as F19 and F20 have it: three lists and a check box in a frame. The controls have the
/// names of the window's model: "F20.Combo2" for one.
template <class Model>
class ListenTimeBox {
public:
    ListenTimeBox(Model& model, Label& frame, const QString& window, const QString& frameName, QWidget* parent)
        : model_(model), window_(window), group_(captionedFrame(frame, window + frameName, parent)) {
        auto* caption = new QLabel(group_);
        bind(model.Label2, caption, window + QStringLiteral(".Label2"));
        lists_->addWidget(caption);
        addList(model.Combo2, ".Combo2", &Model::Combo2_Click);
        addList(model.Combo3, ".Combo3", &Model::Combo3_Click);
        addList(model.Combo4, ".Combo4", &Model::Combo4_Click);
        lists_->addStretch();
        auto* always = new QCheckBox(group_);
        bind(model.Check1, always, window + QStringLiteral(".Check1"), [&model](bool on) { model.Check1_Click(on); });
        auto* lines = new QVBoxLayout(group_);
        lines->addLayout(lists_);
        lines->addWidget(always);
    }

    QGroupBox* group() const { return group_; }

    /// "0 Std." and the like: what is behind the number tells a screen reader one list from the other.
    void setWords() {
        for (const auto& [list, model] : {std::pair{".Combo2", &model_.Combo2}, std::pair{".Combo3", &model_.Combo3},
                                          std::pair{".Combo4", &model_.Combo4}}) {
            group_->findChild<QComboBox*>(window_ + QLatin1String(list))
                ->setAccessibleName(toQt(model_.Label2.Text() + model->Entries().front().substr(1)));
        }
    }

private:
    void addList(ListBox& model, const char* name, void (Model::*chosen)(int)) {
        auto* list = new QComboBox(group_);
        bind(model, list, window_ + QLatin1String(name),
             [window = &model_, chosen](int entry) { (window->*chosen)(entry); });
        list->setMaxVisibleItems(20);
        lists_->addWidget(list);
    }

    Model& model_;
    QString window_;
    QGroupBox* group_;
    QHBoxLayout* lists_ = new QHBoxLayout;
};

} // namespace qvm::ui
