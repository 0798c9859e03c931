#include "Views/ActiveSession/WrappedText.h"

#include <QFontMetricsF>
#include <QTextLayout>
#include <QTextOption>

#include <algorithm>

namespace tolvar {

namespace {

struct Wrapping {
    std::vector<QString> lines;
    bool isCut = false;
};

Wrapping wrap(const QString& text, const QFont& font, double width, int mostLines) {
    QTextLayout layout(text, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    Wrapping wrapping;
    std::vector<QString>& lines = wrapping.lines;
    for (QTextLine line = layout.createLine(); line.isValid() && !wrapping.isCut;
         line = layout.createLine()) {
        line.setLineWidth(width);
        const qsizetype end = line.textStart() + line.textLength();
        wrapping.isCut = static_cast<int>(lines.size()) + 1 == mostLines && end < text.size();
        lines.push_back(wrapping.isCut ? QFontMetricsF(font).elidedText(text.mid(line.textStart()),
                                                                        Qt::ElideRight, width)
                                       : text.mid(line.textStart(), line.textLength()).trimmed());
    }
    layout.endLayout();
    return wrapping;
}

double longestWord(const QString& text, const QFont& font) {
    const QFontMetricsF metrics(font);
    double longest = 0;
    for (const QString& word : text.split(u' '))
        longest = std::max(longest, metrics.horizontalAdvance(word));
    return longest;
}

} // namespace

std::vector<QString> wrappedLines(const QString& text, const QFont& font, double width,
                                  int mostLines) {
    const QString all = text.simplified();
    if (all.isEmpty())
        return {};
    Wrapping wrapping = wrap(all, font, width, mostLines);
    const auto count = static_cast<int>(wrapping.lines.size());
    if (wrapping.isCut || count < 2)
        return wrapping.lines;
    // As narrow as it can be without more lines, or a word that is broken.
    double enough = width;
    double tooLittle = std::max(width / count, longestWord(all, font));
    while (enough - tooLittle > 1) {
        const double between = (enough + tooLittle) / 2;
        Wrapping narrower = wrap(all, font, between, count);
        (narrower.isCut ? tooLittle : enough) = between;
        if (!narrower.isCut)
            wrapping = std::move(narrower);
    }
    return wrapping.lines;
}

} // namespace tolvar
