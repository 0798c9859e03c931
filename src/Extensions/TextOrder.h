#pragma once

#include <QCollator>
#include <QLocale>
#include <QString>

namespace tolvar {

/// Whether `left` sorts before `right` by Unicode scalar values: case-sensitive, the same in
/// every locale.
bool precedesByScalars(const QString& left, const QString& right);

/// The order people expect of a list of names, as a comparison for sorting: case-insensitive by
/// the rules of their language, runs of digits by their value ("App 2" before "App 10"), in every
/// locale including "C".
class NaturalOrder {
public:
    explicit NaturalOrder(const QLocale& locale = QLocale());

    bool operator()(const QString& left, const QString& right) const {
        return m_collator.compare(left, right) < 0;
    }

private:
    QCollator m_collator;
};

} // namespace tolvar
