#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/Shared/ControlContext.h"

#include <QPointer>
#include <QWidget>

class QLabel;

namespace tolvar {

/// A card that rises over a window and asks for something. While it is up the window behind it is
/// dim and cannot be touched, and the keyboard stays within the card. Escape sends it away. One
/// that sinks is in nobody's way any more.
class Sheet : public QWidget {
    Q_OBJECT

public:
    /// Around what stands on the card, in points.
    static constexpr int padding = 20;

    /// `window` is what it rises over; `title` is what it is called to those who do not see it.
    Sheet(const ControlContext& context, const QString& title, QWidget& window);

    /// What stands on the card, as large as it wishes; the sheet owns it.
    void setContent(QWidget* content);
    bool isUp() const { return m_isUp; }

public Q_SLOTS:
    void rise();
    void sink();

Q_SIGNALS:
    /// It has begun to sink.
    void dismissed();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QRectF card() const;
    void place();

    AnimatedValue m_height;
    QPointer<QWidget> m_content;
    QPointer<QWidget> m_focusedBefore;
    bool m_isUp = false;
};

/// Asks whether something that cannot be undone is to be done.
class ConfirmationSheet final : public Sheet {
    Q_OBJECT

public:
    struct Texts {
        QString title;
        QString message;
        QString cancel;
        QString confirm;
    };

    ConfirmationSheet(const ControlContext& context, const Texts& texts, QWidget& window);

    void setMessage(const QString& message);

Q_SIGNALS:
    void confirmed();

private:
    QLabel* m_message;
};

} // namespace tolvar
