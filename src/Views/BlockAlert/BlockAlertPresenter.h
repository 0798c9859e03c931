#pragma once

#include "Platform/Interfaces/BlockAlert.h"
#include "Views/Shared/ControlContext.h"

#include <QObject>
#include <QPointer>

#include <memory>

class QScreen;

namespace tolvar {

class BlockAlertPanel;
class InterfaceSound;
class PanelWindows;

/// Shows one alert at a time, in the middle of the screen under the pointer, on every desktop and
/// above windows that fill the screen, with the keyboard. It stays until it is dismissed; its
/// screen may go or change meanwhile.
class BlockAlertPresenter final : public QObject, public BlockAlert {
    Q_OBJECT

public:
    /// All outlive the presenter.
    struct Environment {
        ControlContext context;
        InterfaceSound& sound;
        PanelWindows& windows;
    };

    explicit BlockAlertPresenter(const Environment& environment);
    ~BlockAlertPresenter() override;

    void presentBlocked(const QString& name, BlockTarget type) override;
    /// Takes the alert off the screen; nothing happens when there is none.
    void dismiss();

    /// The alert on screen; null for none.
    BlockAlertPanel* panel() const { return m_panel.get(); }

private:
    struct PutAway {
        void operator()(BlockAlertPanel* panel) const;
    };

    void follow(QScreen* screen);
    void recenter();
    void show();

    const Environment m_environment;
    std::unique_ptr<BlockAlertPanel, PutAway> m_panel;
    /// Where the alert was placed.
    QPointer<QScreen> m_screen;
};

} // namespace tolvar
