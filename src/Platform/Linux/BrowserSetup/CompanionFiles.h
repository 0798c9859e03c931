#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace tolvar {

struct KnownBrowser;

/// What browsers are pointed to; paths are absolute.
struct BrowserParts {
    /// The native-messaging host, which browsers start.
    QString host;
    /// The folder of the packed extensions "tolvar.crx" and "tolvar.xpi", and of "chromium", the
    /// unpacked one.
    QString extensions;

    QString chromiumPackage() const { return extensions + QStringLiteral("/tolvar.crx"); }
    QString firefoxPackage() const { return extensions + QStringLiteral("/tolvar.xpi"); }
    QString unpackedExtension() const { return extensions + QStringLiteral("/chromium"); }
};

/// The files that point one browser of one user to Tolvar: a native-messaging manifest and, in
/// Chromium's family, an entry of the per-user folder "External Extensions".
class CompanionFiles {
public:
    enum class State { absent, complete, different };

    /// `home` and `configFolder` (XDG_CONFIG_HOME) are the user's.
    CompanionFiles(const KnownBrowser& browser, const BrowserParts& parts, const QString& home,
                   const QString& configFolder);

    /// Read afresh at each call.
    State state() const;
    /// What must be there for the files to be of use, and is not; nothing when all is.
    std::optional<QString> missingPart() const;
    /// Writes what is not as it should be. Returns the error's description when it fails; where
    /// there was nothing before, there is nothing then.
    [[nodiscard]] std::optional<QString> write() const;
    /// Returns the error's description when it fails.
    [[nodiscard]] std::optional<QString> remove() const;

private:
    struct File {
        QString path;
        QByteArray contents;
    };

    /// Entries of builds of Tolvar whose extension had another key, and so another id.
    QStringList strays() const;
    std::optional<QString> removeStrays() const;
    QStringList presentPaths() const;

    std::vector<File> m_files;
    QStringList m_neededParts;
    /// Empty outside of Chromium's family.
    QString m_extensionsFolder;
};

} // namespace tolvar
