#pragma once

#include "Platform/Interfaces/BlockAlert.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FloatingPanel.h"

#include <QString>
#include <QWidget>

namespace tolvar {

class KeyButton;

/// The card that says what was blocked, with the key that sends it away.
class BlockAlertView final : public QWidget {
    Q_OBJECT

public:
    struct Texts {
        QString title;
        QString message;

        bool operator==(const Texts&) const = default;
    };

    /// In points.
    static constexpr int cardWidth = 360;
    static constexpr double cardRadius = FloatingPanel::cornerRadius;

    /// What is said when `name` was blocked.
    static Texts texts(const QString& name, BlockTarget type);

    BlockAlertView(const ControlContext& context, const Texts& texts, QWidget* parent = nullptr);

    /// The key "Back to work!", which has the keyboard.
    KeyButton& key() { return *m_key; }

Q_SIGNALS:
    void dismissed();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    KeyButton* m_key = nullptr;
};

} // namespace tolvar
