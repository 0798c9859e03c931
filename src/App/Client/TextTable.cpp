#include "App/Client/TextTable.h"

#include <QJsonDocument>

#include <algorithm>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

std::vector<qsizetype> columnWidths(const std::vector<QStringList>& rows) {
    std::vector<qsizetype> widths;
    for (const QStringList& row : rows) {
        widths.resize(static_cast<std::size_t>(row.size()));
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] =
                std::max(widths[column], singleLine(row[static_cast<qsizetype>(column)]).size());
    }
    return widths;
}

/// Above all those that turn the direction of what follows. The joiners shape letters and emoji.
bool isInvisible(QChar character) {
    constexpr char16_t zeroWidthNonJoiner = 0x200C;
    constexpr char16_t zeroWidthJoiner = 0x200D;
    return character.category() == QChar::Other_Format && character != zeroWidthNonJoiner &&
           character != zeroWidthJoiner;
}

} // namespace

QString singleLine(const QString& text) {
    QString line = text;
    line.removeIf(isInvisible);
    std::replace_if(
        line.begin(), line.end(),
        [](QChar character) {
            return character.category() == QChar::Other_Control ||
                   character.category() == QChar::Separator_Line ||
                   character.category() == QChar::Separator_Paragraph;
        },
        QChar(u' '));
    return line;
}

QString textTable(const std::vector<QStringList>& rows) {
    const auto widths = columnWidths(rows);
    QString table;
    for (const QStringList& row : rows) {
        QString line;
        for (std::size_t column = 0; column < widths.size(); ++column)
            line +=
                singleLine(row[static_cast<qsizetype>(column)]).leftJustified(widths[column] + 2);
        while (line.endsWith(u' '))
            line.chop(1);
        table += line + u'\n';
    }
    return table;
}

QString jsonText(const QJsonArray& array) {
    QStringList lines;
    for (const auto& element : array) {
        const QByteArray wrapped =
            QJsonDocument(QJsonArray{element}).toJson(QJsonDocument::Compact);
        lines.append(QString::fromUtf8(wrapped.mid(1, wrapped.size() - 2)));
    }
    return lines.isEmpty() ? u"[]\n"_s : u"[\n"_s + lines.join(u",\n"_s) + u"\n]\n"_s;
}

} // namespace tolvar
