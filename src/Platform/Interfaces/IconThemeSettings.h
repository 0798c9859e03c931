#pragma once

#include <QString>
#include <QStringList>

namespace tolvar {

/// Where the desktop keeps the pictures of its applications.
class IconThemeSettings {
public:
    virtual ~IconThemeSettings() = default;

    /// The icon theme that the user chose for the whole desktop; empty when that is not known.
    /// Asked afresh at each call.
    virtual QString themeName() const = 0;
    /// Folders that hold icon themes, those whose icons come first at the front (in the order that
    /// freedesktop icon themes are looked for); they need not exist.
    virtual QStringList themeFolders() const = 0;
};

} // namespace tolvar
