#include "ComboChoice.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QItemSelectionModel>
#include <QTimer>

namespace qvm::ui {

void chooseThroughTree(QComboBox* box) {
    const QItemSelectionModel* entries = box->view()->selectionModel();
    QObject::connect(entries, &QItemSelectionModel::selectionChanged, box, [box, entries] {
        // Mouse and keys make an entry the current one as well, when they have selected it; the tree does not.
        QTimer::singleShot(0, box, [box, entries] {
            const QModelIndexList chosen = entries->selectedIndexes();
            if (box->view()->isVisible() && chosen.size() == 1 && chosen.front() != entries->currentIndex()) {
                box->hidePopup();
                box->setCurrentIndex(chosen.front().row());
                emit box->activated(box->currentIndex());
            }
        });
    });
}

} // namespace qvm::ui
