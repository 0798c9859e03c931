#include "Views/ActiveSession/WrappedText.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <QTextOption>

namespace tolvar {

std::vector<QString> wrappedLines(const QString& text, const QFont& font, double width,
                                  int mostLines) {
    const QString all = text.simplified();
    if (all.isEmpty())
        return {};
    QTextLayout layout(all, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    std::vector<QString> lines;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        const qsizetype end = line.textStart() + line.textLength();
        if (static_cast<int>(lines.size()) + 1 == mostLines && end < all.size()) {
            lines.push_back(
                QFontMetricsF(font).elidedText(all.mid(line.textStart()), Qt::ElideRight, width));
            break;
        }
        lines.push_back(all.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return lines;
}

} // namespace tolvar
