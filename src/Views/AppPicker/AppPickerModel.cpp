#include "Views/AppPicker/AppPickerModel.h"

#include "Extensions/TextOrder.h"

#include <QLocale>

#include <algorithm>
#include <iterator>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

/// Letters that look the same are the same, however they are composed.
QString folded(const QString& text, const QLocale& locale) {
    return locale.toLower(text.normalized(QString::NormalizationForm_C));
}

} // namespace

void AppPickerModel::loadInstalledApps(const std::set<QString>& selectedApps,
                                       const std::vector<QString>& installedApps) {
    m_selectedApps = selectedApps;
    m_searchText.clear();
    m_pinnedApps.assign(selectedApps.begin(), selectedApps.end());
    std::ranges::sort(m_pinnedApps, precedesByScalars);
    m_otherApps.clear();
    std::ranges::copy_if(installedApps, std::back_inserter(m_otherApps),
                         [&](const QString& name) { return !selectedApps.contains(name); });
}

std::vector<QString> AppPickerModel::matchingSearch(const std::vector<QString>& names) const {
    if (m_searchText.isEmpty())
        return names;
    const QLocale locale;
    const QString wanted = folded(m_searchText, locale);
    std::vector<QString> matching;
    std::ranges::copy_if(names, std::back_inserter(matching), [&](const QString& name) {
        return folded(name, locale).contains(wanted);
    });
    return matching;
}

void AppPickerModel::toggle(const QString& name) {
    if (m_selectedApps.erase(name) == 0)
        m_selectedApps.insert(name);
}

std::vector<AppPickerModel::Row> AppPickerModel::rows() const {
    std::vector<Row> rows;
    const auto add = [&](const QString& heading, const std::vector<QString>& names) {
        if (!names.empty())
            rows.push_back({Row::Kind::heading, heading});
        for (const QString& name : names)
            rows.push_back({Row::Kind::app, name});
    };
    add(u"Selected"_s, matchingSearch(m_pinnedApps));
    add(u"Other apps"_s, matchingSearch(m_otherApps));
    return rows;
}

QString AppPickerModel::emptyText() const {
    if (!rows().empty())
        return {};
    return m_searchText.isEmpty() ? u"No apps found on this computer"_s
                                  : u"No apps match “%1”"_s.arg(m_searchText);
}

QString AppPickerModel::countText() const {
    if (m_selectedApps.empty())
        return u"No apps selected"_s;
    return m_selectedApps.size() == 1 ? u"1 app selected"_s
                                      : u"%1 apps selected"_s.arg(m_selectedApps.size());
}

} // namespace tolvar
