#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// Files in folders of others that can be taken away again so that nothing tells they were there.
/// A folder that had to be made for them bears a mark, an empty file ".app.tolvar.made", by which
/// it is known when they go.
namespace tolvar::TracelessFiles {

/// Writes a file that only its owner may read, whole or not at all, with the folders above it.
/// A link in its place is replaced, never written through. Returns the error's description when it
/// fails; then nothing was made.
[[nodiscard]] std::optional<QString> write(const QString& path, const QByteArray& contents);

/// Removes the files that are there, then from the lowest up the folders above them that were made
/// for such files and are empty now. A made folder in which others have put something stays and
/// loses its mark. Returns the error's description when it fails; the other files are removed all
/// the same, but the folders stay until it is done again and succeeds.
[[nodiscard]] std::optional<QString> remove(const QStringList& paths);

} // namespace tolvar::TracelessFiles
