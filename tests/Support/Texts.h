#pragma once

#include <QString>

#include <initializer_list>
#include <ostream>
#include <vector>

/// Lets GoogleTest show a QString as the text it is.
inline void PrintTo(const QString& text, std::ostream* stream) {
    *stream << '"' << text.toStdString() << '"';
}

namespace tolvar::test {

using Texts = std::vector<QString>;

/// texts({u"a", u"b"}): a list of QStrings from literals.
inline Texts texts(std::initializer_list<const char16_t*> literals) {
    Texts result;
    for (const char16_t* literal : literals)
        result.push_back(QString::fromUtf16(literal));
    return result;
}

} // namespace tolvar::test
