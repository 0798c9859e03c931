#include "Platform/Linux/Desktop/DesktopEntryFile.h"

#include <QFile>
#include <QFileInfo>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 1024 * 1024;

QChar unescaped(QChar escape) {
    switch (escape.unicode()) {
    case 's':
        return u' ';
    case 'n':
        return u'\n';
    case 't':
        return u'\t';
    case 'r':
        return u'\r';
    default:
        return escape;
    }
}

/// Whether `escape` is a letter that stands for something after a backslash.
bool isEscape(QChar escape) {
    return escape == u'\\' || unescaped(escape) != escape;
}

/// Splits at each ";" that has no backslash before it. The ending ";" closes the last item.
QStringList unescapedItems(const QString& written) {
    QStringList items;
    QString item;
    for (qsizetype i = 0; i < written.size(); ++i) {
        const QChar next = i + 1 < written.size() ? written[i + 1] : QChar();
        if (written[i] == u';') {
            items.append(std::exchange(item, {}));
        } else if (written[i] == u'\\' && (isEscape(next) || next == u';')) {
            item += unescaped(next);
            ++i;
        } else {
            item += written[i];
        }
    }
    if (!item.isEmpty())
        items.append(item);
    return items;
}

/// A backslash before anything else than an escape is kept: such files exist, and losing the
/// backslash of a path would make it another path.
QString unescapedText(const QString& written) {
    QString text;
    text.reserve(written.size());
    for (qsizetype i = 0; i < written.size(); ++i) {
        if (written[i] == u'\\' && i + 1 < written.size() && isEscape(written[i + 1]))
            text += unescaped(written[++i]);
        else
            text += written[i];
    }
    return text;
}

/// "Name[de_DE.UTF-8@euro]" → "Name[de_DE@euro]": all files are in UTF-8, whatever they say.
QString withoutEncoding(const QString& key) {
    const auto dot = key.indexOf(u'.', key.indexOf(u'['));
    if (!key.contains(u'[') || dot < 0)
        return key;
    const auto at = key.indexOf(u'@', dot);
    return key.left(dot) + key.mid(at >= 0 ? at : key.indexOf(u']', dot));
}

} // namespace

DesktopEntryFile::DesktopEntryFile(const QByteArray& contents) {
    bool inGroup = false;
    QString text = QString::fromUtf8(contents);
    if (text.startsWith(QChar::ByteOrderMark))
        text.remove(0, 1);
    for (const auto& part : QStringView(text).split(u'\n')) {
        const auto line = part.trimmed();
        const auto equals = line.indexOf(u'=');
        if (line.startsWith(u'['))
            inGroup = line == u"[Desktop Entry]";
        else if (inGroup && !line.startsWith(u'#') && equals > 0)
            m_values.insert(withoutEncoding(line.left(equals).trimmed().toString()),
                            line.mid(equals + 1).trimmed().toString());
    }
}

std::optional<DesktopEntryFile> DesktopEntryFile::read(const QString& path) {
    QFile file(path);
    if (!QFileInfo(path).isFile() || file.size() > largestFile || !file.open(QFile::ReadOnly))
        return std::nullopt;
    return DesktopEntryFile(file.readAll());
}

QString DesktopEntryFile::string(const QString& key) const {
    return unescapedText(m_values.value(key));
}

QString DesktopEntryFile::localizedString(const QString& key, const QStringList& locales) const {
    for (const auto& locale : locales)
        if (const auto found = m_values.find(key + u'[' + locale + u']'); found != m_values.end())
            return unescapedText(*found);
    return string(key);
}

QStringList DesktopEntryFile::strings(const QString& key) const {
    return unescapedItems(m_values.value(key));
}

bool DesktopEntryFile::boolean(const QString& key, bool fallback) const {
    const QString written = m_values.value(key);
    if (written == u"true" || written == u"1")
        return true;
    return written == u"false" || written == u"0" ? false : fallback;
}

QStringList matchingLocales(const QString& locale) {
    QStringList matching;
    for (const auto& name : locale.split(u':', Qt::SkipEmptyParts)) {
        const QString modifier = name.contains(u'@') ? name.mid(name.indexOf(u'@')) : QString();
        const QString place = name.section(u'@', 0, 0).section(u'.', 0, 0);
        const QString language = place.section(u'_', 0, 0);
        matching << place + modifier << place << language + modifier << language;
    }
    matching.removeDuplicates();
    return matching;
}

QString escapedDesktopString(const QString& text) {
    QString escaped = text;
    escaped.replace(u'\\', u"\\\\"_s);
    escaped.replace(u'\n', u"\\n"_s).replace(u'\t', u"\\t"_s).replace(u'\r', u"\\r"_s);
    if (escaped.startsWith(u' '))
        escaped.replace(0, 1, u"\\s"_s);
    return escaped;
}

} // namespace tolvar
