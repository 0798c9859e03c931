#include "Views/BlockAlert/BlockAlertPresenter.h"

#include "Platform/Interfaces/PanelWindows.h"
#include "Sound/InterfaceSound.h"
#include "Views/BlockAlert/BlockAlertPanel.h"
#include "Views/BlockAlert/BlockAlertView.h"
#include "Views/BlockAlert/ScreenPlacement.h"

#include <QAccessible>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace tolvar {

namespace {

constexpr PanelTraits traits = PanelTraits(PanelTrait::onEveryDesktop) | PanelTrait::outOfTaskbar |
                               PanelTrait::aboveOthers | PanelTrait::ownShadow;

QScreen* screenUnderPointer() {
    const auto screens = QGuiApplication::screens();
    std::vector<QRect> frames;
    for (const QScreen* screen : screens)
        frames.push_back(screen->geometry());
    const int index = screenUnder(QCursor::pos(), frames);
    return index >= 0 ? screens[index] : QGuiApplication::primaryScreen();
}

} // namespace

/// It may be in the midst of telling of a press.
void BlockAlertPresenter::PutAway::operator()(BlockAlertPanel* panel) const {
    panel->hide();
    panel->deleteLater();
}

BlockAlertPresenter::BlockAlertPresenter(const Environment& environment)
    : m_environment(environment) {
    for (QScreen* screen : QGuiApplication::screens())
        follow(screen);
    connect(qApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        follow(screen);
        recenter();
    });
    // By then the toolkit has moved the windows of a screen that is gone.
    connect(qApp, &QGuiApplication::screenRemoved, this, &BlockAlertPresenter::recenter,
            Qt::QueuedConnection);
    connect(qApp, &QGuiApplication::primaryScreenChanged, this, &BlockAlertPresenter::recenter,
            Qt::QueuedConnection);
}

BlockAlertPresenter::~BlockAlertPresenter() {
    delete m_panel.release();
}

void BlockAlertPresenter::follow(QScreen* screen) {
    connect(screen, &QScreen::geometryChanged, this, &BlockAlertPresenter::recenter,
            Qt::QueuedConnection);
}

void BlockAlertPresenter::presentBlocked(const QString& name, BlockTarget type) {
    if (m_panel)
        return;
    auto* view = new BlockAlertView(m_environment.context, BlockAlertView::texts(name, type));
    m_panel.reset(new BlockAlertPanel(view, m_environment.windows.showsTranslucency()
                                                ? BlockAlertPanel::Surroundings::shadow
                                                : BlockAlertPanel::Surroundings::none));
    connect(view, &BlockAlertView::dismissed, this, &BlockAlertPresenter::dismiss);
    connect(m_panel.get(), &BlockAlertPanel::cancelled, this, &BlockAlertPresenter::dismiss);
    m_screen = screenUnderPointer();
    show();
    m_environment.sound.play(InterfaceSound::Sound::blocked);
    QAccessibleEvent alert(view, QAccessible::Alert);
    QAccessible::updateAccessibility(&alert);
}

void BlockAlertPresenter::show() {
    m_environment.windows.setTraits(m_panel->winId(), traits);
    recenter();
    m_panel->show();
    m_panel->activateWindow();
    m_environment.windows.activate(m_panel->winId());
}

void BlockAlertPresenter::dismiss() {
    m_panel.reset();
}

void BlockAlertPresenter::recenter() {
    if (!m_panel)
        return;
    if (!m_screen || !QGuiApplication::screens().contains(m_screen))
        m_screen = screenUnderPointer();
    if (!m_screen)
        return;
    m_panel->setScreen(m_screen);
    m_panel->standAt(centeredOrigin(m_screen->geometry(), m_panel->size()));
}

} // namespace tolvar
