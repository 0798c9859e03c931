#pragma once

#include <QProxyStyle>

#include <functional>

namespace tolvar {

/// The style of the whole program, for what Qt makes by itself: context menus and tooltips are
/// small cards of the same make as the window. Everything else is left to Fusion.
class InstrumentStyle final : public QProxyStyle {
    Q_OBJECT

public:
    /// `showsTranslucency` says whether the desktop is seen where a window is not opaque; where it
    /// is not, the round corners are cut out of the windows.
    explicit InstrumentStyle(std::function<bool()> showsTranslucency = [] { return true; });

    using QProxyStyle::polish;
    void polish(QWidget* widget) override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget = nullptr) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                    const QWidget* widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption* option = nullptr,
                  const QWidget* widget = nullptr,
                  QStyleHintReturn* answer = nullptr) const override;

private:
    int mask(const QStyleOption& option, double radius, QStyleHintReturn* answer) const;

    std::function<bool()> m_showsTranslucency;
};

} // namespace tolvar
