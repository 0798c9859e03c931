#include "Extensions/TextOrder.h"

#include <algorithm>

namespace tolvar {

namespace {

/// The "C" locale collates by code, without numbers; English rules stand in for it.
QLocale collationLocale(const QLocale& locale) {
    return locale.language() == QLocale::C ? QLocale(QLocale::English) : locale;
}

} // namespace

bool precedesByScalars(const QString& left, const QString& right) {
    const auto [leftEnd, rightEnd] =
        std::mismatch(left.begin(), left.end(), right.begin(), right.end());
    if (leftEnd == left.end() || rightEnd == right.end())
        return leftEnd == left.end() && rightEnd != right.end();
    // UTF-16 puts surrogates, which spell the highest scalars, below U+E000 to U+FFFF.
    if (leftEnd->isSurrogate() != rightEnd->isSurrogate())
        return rightEnd->isSurrogate();
    return *leftEnd < *rightEnd;
}

NaturalOrder::NaturalOrder(const QLocale& locale)
    : m_collator(collationLocale(locale)) {
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

} // namespace tolvar
