#pragma once

#include <QString>

#include <set>
#include <vector>

namespace tolvar {

/// What the app picker shows, and what is chosen in it.
class AppPickerModel {
public:
    /// A row of the list: an application, or the heading of a section.
    struct Row {
        enum class Kind { heading, app };
        Kind kind = Kind::app;
        QString text;

        bool operator==(const Row&) const = default;
    };

    /// Begins afresh with what is selected and what is installed (`getInstalledApplications`).
    /// Selected applications are pinned to the top until it begins again, also those that are not
    /// installed, and also once they are not selected any more.
    void loadInstalledApps(const std::set<QString>& selectedApps,
                           const std::vector<QString>& installedApps);

    const std::vector<QString>& pinnedApps() const { return m_pinnedApps; }
    const std::vector<QString>& otherApps() const { return m_otherApps; }
    const std::set<QString>& selectedApps() const { return m_selectedApps; }
    bool isSelected(const QString& name) const { return m_selectedApps.contains(name); }

    const QString& searchText() const { return m_searchText; }
    void setSearchText(const QString& text) { m_searchText = text; }
    /// The names that contain the search text, whatever the case of letters in the user's
    /// language; all of them while there is none.
    std::vector<QString> matchingSearch(const std::vector<QString>& names) const;

    /// Adds the name to the selection, or takes it out.
    void toggle(const QString& name);
    void clearSelection() { m_selectedApps.clear(); }

    /// The matching pinned and the matching other applications, each below its heading; a section
    /// without any has no heading.
    std::vector<Row> rows() const;
    /// What stands in place of the rows when there are none; empty when there are.
    QString emptyText() const;
    /// How many are selected, in words.
    QString countText() const;

private:
    std::vector<QString> m_pinnedApps;
    std::vector<QString> m_otherApps;
    std::set<QString> m_selectedApps;
    QString m_searchText;
};

} // namespace tolvar
