#include "Views/BlockAlert/BlockAlertPanel.h"

#include "Views/BlockAlert/BlockAlertView.h"

#include <QCloseEvent>
#include <QKeyEvent>

namespace tolvar {

BlockAlertPanel::BlockAlertPanel(BlockAlertView* view, Surroundings surroundings)
    : FloatingPanel(view, surroundings, Corners::round) {
    setWindowTitle(view->accessibleName());
    view->setFocus(Qt::OtherFocusReason);
}

void BlockAlertPanel::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else
        FloatingPanel::keyPressEvent(event);
}

void BlockAlertPanel::closeEvent(QCloseEvent* event) {
    event->accept();
    Q_EMIT cancelled();
}

} // namespace tolvar
