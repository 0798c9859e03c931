#pragma once

#include <QPointer>
#include <QWidget>

namespace tolvar {

/// What a control says about the rim that the keyboard's ring is drawn around. Controls without it
/// get a ring around their rectangle; those with an empty rim get none.
class HasFocusRim {
public:
    virtual ~HasFocusRim() = default;
    /// In the control's own coordinates.
    virtual QRectF focusRim() const = 0;
    virtual double focusRadius() const = 0;
};

/// The amber hairline around whatever has the keyboard in a window: one for the whole window, above
/// everything, so that it may stand outside of what it is around. It shows only for those who came
/// there by the keyboard.
class FocusRing final : public QWidget {
    Q_OBJECT

public:
    /// Between the rim and the ring, in points.
    static constexpr double outset = 2;

    /// `window` is the widget that the ring may be drawn over.
    explicit FocusRing(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void takeNoteOf(const QWidget& widget, const QEvent& event);
    bool isOfWindow(const QWidget& widget) const;
    void follow(QWidget* control);
    void place();

    QPointer<QWidget> m_control;
    bool m_cameByKeyboard = false;
};

} // namespace tolvar
