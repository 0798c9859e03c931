#pragma once

#include <QFont>
#include <QString>

#include <vector>

namespace tolvar {

/// `text` as at most `mostLines` lines that are no wider than `width` points: broken between words,
/// within a word that fits no line, and the last one cut with an ellipsis where there is more. The
/// lines are about equally long, so that no word is left alone on the last.
/// Every run of blanks, line breaks among them, counts as one space; no text has no lines.
std::vector<QString> wrappedLines(const QString& text, const QFont& font, double width,
                                  int mostLines);

} // namespace tolvar
