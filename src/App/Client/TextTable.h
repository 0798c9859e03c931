#pragma once

#include <QJsonArray>
#include <QString>
#include <QStringList>

#include <vector>

namespace tolvar {

/// The text with every line break, tab and other control character replaced by a space, and without
/// format characters such as those of the direction of writing, so that it stays on one line and
/// cannot steer a terminal.
QString singleLine(const QString& text);

/// Rows as lines of aligned columns, two spaces apart, each ended by a line feed; the last column
/// is not padded. Every cell is made a single line. All rows have as many cells as the first.
QString textTable(const std::vector<QStringList>& rows);

/// The array with one element on each line.
QString jsonText(const QJsonArray& array);

} // namespace tolvar
