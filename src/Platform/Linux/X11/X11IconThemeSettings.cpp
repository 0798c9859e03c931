#include "Platform/Linux/X11/X11IconThemeSettings.h"

#include "Platform/Linux/X11/XConnection.h"
#include "Platform/Linux/X11/XSettings.h"

namespace tolvar {

X11IconThemeSettings::X11IconThemeSettings(std::unique_ptr<XConnection> connection,
                                           std::unique_ptr<IconThemeSettings> files)
    : m_connection(std::move(connection))
    , m_files(std::move(files)) {}

X11IconThemeSettings::~X11IconThemeSettings() = default;

std::unique_ptr<X11IconThemeSettings>
X11IconThemeSettings::create(std::unique_ptr<IconThemeSettings>& files) {
    auto connection = XConnection::open();
    if (!connection)
        return nullptr;
    return std::unique_ptr<X11IconThemeSettings>(
        new X11IconThemeSettings(std::move(connection), std::move(files)));
}

QString X11IconThemeSettings::themeName() const {
    const auto manager =
        m_connection->selectionOwner(m_connection->atom(XAtom::xSettingsSelection));
    if (manager == XCB_NONE)
        return m_files->themeName();
    const auto settings = m_connection->read(manager, m_connection->atom(XAtom::xSettingsSettings));
    const auto name = xSettingsText(settings.bytes, "Net/IconThemeName");
    return name && !name->isEmpty() ? *name : m_files->themeName();
}

} // namespace tolvar
