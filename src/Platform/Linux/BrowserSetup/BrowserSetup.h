#pragma once

#include "Platform/Interfaces/BrowserCompanions.h"
#include "Platform/Linux/BrowserSetup/CompanionFiles.h"
#include "Platform/Linux/BrowserSetup/InstalledBrowsers.h"

namespace tolvar {

/// Browsers pointed to Tolvar by files in the user's own folders. Browsers that are Flatpaks or
/// Snaps are found, but cannot be reached: their sandbox starts no program outside of it.
class BrowserSetup final : public BrowserCompanions {
public:
    struct Environment {
        /// What browsers are pointed to.
        BrowserParts parts;
        /// The user's folders.
        QString home;
        QString configFolder;
        /// Where browsers may be installed.
        InstalledBrowsers::Places places;
        /// The folders of Firefox's add-ons for every user of the machine.
        QStringList firefoxAddOns;
    };

    explicit BrowserSetup(Environment environment);
    static BrowserSetup ofThisUser(const BrowserParts& parts);

    QStringList known() const override;
    /// By id, by the name that people see, or by the program that starts it, in any case.
    std::optional<BrowserCompanion> find(const QString& name) const override;
    std::vector<BrowserCompanion> found() const override;
    [[nodiscard]] std::optional<QString> setUp(const QString& id) override;
    [[nodiscard]] std::optional<QString> remove(const QString& id) override;

private:
    CompanionFiles filesOf(const KnownBrowser& browser) const;
    BrowserCompanion companion(const KnownBrowser& browser) const;
    std::optional<QString> obstacle(const KnownBrowser& browser) const;
    QString remainder(const KnownBrowser& browser) const;
    QString leftover(const KnownBrowser& browser) const;
    QString howToLoadByHand() const;
    QString howToAddToFirefox() const;
    /// Whether the extension was removed inside a browser of Chromium's family, in any profile:
    /// such a browser never takes it from "External Extensions" again.
    bool wasRemovedInside(const KnownBrowser& browser) const;
    /// Whether the extension of this very Tolvar is there for all users.
    bool hasFirefoxAddOn() const;

    Environment m_environment;
    InstalledBrowsers m_installed;
};

} // namespace tolvar
