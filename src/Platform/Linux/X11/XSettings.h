#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <optional>

namespace tolvar {

/// A setting that is a text, out of the value of the property _XSETTINGS_SETTINGS (XSETTINGS
/// protocol 0.5); nothing when it is not there, is not a text, or the value is damaged before it.
std::optional<QString> xSettingsText(const QByteArray& settings, const QByteArray& name);
/// The same of a setting that is a number.
std::optional<std::int32_t> xSettingsNumber(const QByteArray& settings, const QByteArray& name);

} // namespace tolvar
