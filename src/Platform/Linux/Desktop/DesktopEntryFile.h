#pragma once

#include <QHash>
#include <QString>
#include <QStringList>

#include <optional>

namespace tolvar {

/// The "Desktop Entry" group of one desktop file (Desktop Entry Specification 1.5). Other groups,
/// comments and lines that are no key are passed over; of a key that stands twice, the last counts.
class DesktopEntryFile {
public:
    /// `contents` are the bytes of the file.
    explicit DesktopEntryFile(const QByteArray& contents);
    /// Nothing when `path` is not a regular file, not readable, or larger than 1 MiB.
    static std::optional<DesktopEntryFile> read(const QString& path);

    bool contains(const QString& key) const { return m_values.contains(key); }
    /// Escapes resolved; empty when the key is absent.
    QString string(const QString& key) const;
    /// The value for the first of `locales` that has one, else the one without a locale. `locales`
    /// are as matchingLocales gives them.
    QString localizedString(const QString& key, const QStringList& locales) const;
    /// A list separated by ";".
    QStringList strings(const QString& key) const;
    /// `fallback` when the key is absent or neither true nor false.
    bool boolean(const QString& key, bool fallback = false) const;

private:
    /// Values as written, under their keys as written but for an encoding within the locale.
    QHash<QString, QString> m_values;
};

/// The locales whose texts serve a user of `locale`, best first: "sr_RS.UTF-8@latin" gives
/// "sr_RS@latin", "sr_RS", "sr@latin" and "sr". Several names separated by ":", as in the
/// environment's LANGUAGE, follow each other.
QStringList matchingLocales(const QString& locale);

/// `text` as the value of a key, with what must be escaped escaped.
QString escapedDesktopString(const QString& text);

} // namespace tolvar
