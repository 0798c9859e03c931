#pragma once

#include <QObject>

namespace tolvar {

/// Whether the popover is on screen, for the screens within it.
class PopoverVisibility final : public QObject {
    Q_OBJECT

public:
    explicit PopoverVisibility(QObject* parent = nullptr);
    ~PopoverVisibility() override;

    /// The one of this process; the composition root makes it before anyone asks.
    static PopoverVisibility& shared();

    bool isShown() const { return m_isShown; }
    void setShown(bool isShown);

Q_SIGNALS:
    void changed(bool isShown);

private:
    bool m_isShown = false;
};

} // namespace tolvar
