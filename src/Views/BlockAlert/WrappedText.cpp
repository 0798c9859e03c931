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
    layOut(text);
    const double height = m_layout.boundingRect().height();
    setFixedSize(m_style.width, static_cast<int>(std::ceil(height)));
}

/// With the last line that there may be cut to its width.
void WrappedText::layOut(const QString& text) {
    m_layout.setText(text);
    m_layout.setFont(m_style.font);
    QTextOption option(Qt::AlignLeft);
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTextDirection(layoutDirection());
    m_layout.setTextOption(option);
    m_layout.beginLayout();
    double height = 0;
    for (int count = 1;; ++count) {
        QTextLine line = m_layout.createLine();
        if (!line.isValid())
            break;
        line.setLineWidth(m_style.width);
        line.setPosition({0, height});
        height += line.height();
        const qsizetype end = line.textStart() + line.textLength();
        if (count == m_style.mostLines && end < text.size()) {
            const QString rest = text.mid(line.textStart());
            const QString cut =
                QFontMetricsF(m_style.font).elidedText(rest, Qt::ElideRight, m_style.width);
            m_layout.endLayout();
            return layOut(text.left(line.textStart()) + cut);
        }
    }
    m_layout.endLayout();
}

void WrappedText::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(m_style.ink);
    m_layout.draw(&painter, {0, 0});
}

} // namespace tolvar
