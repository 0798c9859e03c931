#pragma once

#include <QString>

/// What the remote control is called on the session bus.
namespace tolvar::RemoteNames {

inline const QString service = QStringLiteral("app.tolvar.Tolvar");
inline const QString objectPath = QStringLiteral("/app/tolvar/Tolvar");
inline const QString controlInterface = QStringLiteral("app.tolvar.Tolvar1");

} // namespace tolvar::RemoteNames
