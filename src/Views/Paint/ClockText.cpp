#include "Views/Paint/ClockText.h"

#include "Views/Paint/Paint.h"

#include <QFontMetricsF>

#include <algorithm>
#include <vector>

namespace tolvar::Paint {

namespace {

/// Room for what metrics round, so that nothing is cut.
constexpr double spare = 2;

/// Letters between digits, which keep their kerning, or one digit.
struct Run {
    QString content;
    /// With tracking; of the letters themselves and of the space they stand in the middle of.
    double advance;
    double width;
};

double widestDigit(const QFontMetricsF& metrics) {
    double widest = 0;
    for (char16_t digit = u'0'; digit <= u'9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QString(QChar(digit))));
    return widest;
}

/// Only these have cells: a clock is written in them.
bool isDigit(QChar character) {
    return character >= u'0' && character <= u'9';
}

std::vector<Run> runsOf(const QString& content, const QFont& font) {
    const QFontMetricsF metrics(font);
    const double cell = widestDigit(metrics);
    std::vector<Run> runs;
    for (qsizetype begin = 0; begin < content.size();) {
        qsizetype end = begin + 1;
        while (!isDigit(content[begin]) && end < content.size() && !isDigit(content[end]))
            ++end;
        const QString piece = content.mid(begin, end - begin);
        const double advance = metrics.horizontalAdvance(piece);
        runs.push_back({piece, advance, isDigit(content[begin]) ? cell : advance});
        begin = end;
    }
    return runs;
}

double widthOf(const std::vector<Run>& runs, const QFont& font) {
    double width = 0;
    for (const Run& run : runs)
        width += run.width;
    return runs.empty() ? 0 : width - font.letterSpacing();
}

double leftOf(const QRectF& rect, double width, Qt::Alignment horizontally) {
    if (horizontally & Qt::AlignHCenter)
        return rect.center().x() - width / 2;
    return horizontally & Qt::AlignRight ? rect.right() - width : rect.left();
}

} // namespace

double clockCell(QChar character, const QFont& font) {
    const QFontMetricsF metrics(font);
    return isDigit(character) ? widestDigit(metrics)
                              : metrics.horizontalAdvance(QString(character));
}

double clockWidth(const QString& content, const QFont& font) {
    return widthOf(runsOf(content, font), font);
}

void clockText(QPainter& painter, const QRectF& rect, const QString& content, const QFont& font,
               const QColor& color, Qt::Alignment horizontally) {
    const auto runs = runsOf(content, font);
    double left = leftOf(rect, widthOf(runs, font), horizontally);
    for (const Run& run : runs) {
        const double aside = (run.width - run.advance) / 2;
        text(painter, {left + aside, rect.top(), run.advance + spare, rect.height()}, run.content,
             font, color);
        left += run.width;
    }
}

} // namespace tolvar::Paint
