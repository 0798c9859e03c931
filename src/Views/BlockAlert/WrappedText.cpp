#include "Views/BlockAlert/WrappedText.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <cmath>

namespace tolvar {

namespace {

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* text = qobject_cast<WrappedText*>(object);
    return text ? new QAccessibleWidget(text, QAccessible::StaticText) : nullptr;
}

} // namespace

WrappedText::WrappedText(const QString& text, const Style& style, QWidget* parent)
    : QWidget(parent)
    , m_style(style) {
    QAccessible::installFactory(faceOf);
    setAccessibleName(text);
    if (layOut(text, m_style.width)) {
        const int start = m_layout.lineAt(m_layout.lineCount() - 1).textStart();
        layOut(text.left(start) + QFontMetricsF(m_style.font)
                                      .elidedText(text.mid(start), Qt::ElideMiddle, m_style.width),
               m_style.width);
    } else {
        balance(text);
    }
    const double height = m_layout.boundingRect().height();
    setFixedSize(m_style.width, static_cast<int>(std::ceil(height)));
}

std::optional<int> WrappedText::layOut(const QString& text, double width) {
    m_layout.setText(text);
    m_layout.setFont(m_style.font);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(layoutDirection());
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    double height = 0;
    int end = 0;
    while (m_layout.lineCount() < m_style.mostLines && end < text.size()) {
        QTextLine line = m_layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(width);
        line.setPosition({0, height});
        height += line.height();
        end = line.textStart() + line.textLength();
    }
    m_layout.endLayout();
    return end < text.size() ? std::optional(end) : std::nullopt;
}

/// Narrows the lines as far as they do not become more.
void WrappedText::balance(const QString& text) {
    const int lines = m_layout.lineCount();
    if (lines < 2)
        return;
    double enough = m_style.width;
    double tooLittle = enough / lines;
    while (enough - tooLittle > 1) {
        const double between = (enough + tooLittle) / 2;
        const bool fits = !layOut(text, between) && m_layout.lineCount() <= lines;
        (fits ? enough : tooLittle) = between;
    }
    layOut(text, enough);
}

void WrappedText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(m_style.ink);
    m_layout.draw(&painter, {0, 0});
}

} // namespace tolvar
