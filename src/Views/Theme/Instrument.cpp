#include "Views/Theme/Instrument.h"

#include <QFontDatabase>
#include <QStringList>

namespace tolvar::Instrument {

using namespace Qt::StringLiterals;

QFont font(double size, QFont::Weight weight, double tracking) {
    QFont font(QStringList{u"Inter"_s, u"Noto Sans"_s, u"DejaVu Sans"_s});
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(qRound(size));
    font.setWeight(weight);
    font.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    return font;
}

} // namespace tolvar::Instrument
