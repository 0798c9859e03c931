#include "Platform/Linux/X11/ApplicationGrouping.h"

#include <QHash>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

/// The windows of one desktop and what they share.
class Grouping {
public:
    Grouping(const std::vector<MatchedWindow>& windows, qint64 ownProcess)
        : m_ownProcess(ownProcess) {
        for (const MatchedWindow& window : windows) {
            m_byId.insert(window.facts.id, &window);
            rememberEntry(window);
            rememberName(window);
        }
    }

    ApplicationIdentity identify(const MatchedWindow& dialog) const {
        const MatchedWindow& window = mainWindow(dialog);
        if (window.facts.processIdentifier == m_ownProcess)
            return {u"self"_s, {}, {}, true};
        if (!window.entryId.isEmpty())
            return ofEntry(window);
        const QString key = shared(window);
        if (const MatchedWindow* entry = m_entries.value(key))
            return ofEntry(*entry);
        return {key, m_names.value(key), {}, false};
    }

private:
    static ApplicationIdentity ofEntry(const MatchedWindow& window) {
        return {u"entry:"_s + window.entryId, window.entryName, window.entryId, false};
    }

    /// What the window shares with others that bear no entry.
    static QString shared(const MatchedWindow& window) {
        const WindowFacts& facts = window.facts;
        if (facts.processIdentifier != 0)
            return u"process:%1"_s.arg(facts.processIdentifier);
        if (facts.leader != 0)
            return u"client:%1"_s.arg(facts.leader);
        if (!facts.wmClass.className.isEmpty())
            return u"class:"_s + facts.wmClass.className;
        return u"window:%1"_s.arg(facts.id);
    }

    /// The window at the end of the chain of dialogs. A chain that bites its tail ends anywhere.
    const MatchedWindow& mainWindow(const MatchedWindow& dialog) const {
        const MatchedWindow* window = &dialog;
        for (qsizetype steps = m_byId.size(); steps > 0; --steps) {
            const MatchedWindow* parent = m_byId.value(window->facts.transientFor);
            if (!parent)
                break;
            window = parent;
        }
        return *window;
    }

    void rememberEntry(const MatchedWindow& window) {
        if (window.entryId.isEmpty())
            return;
        const QString key = shared(window);
        const auto known = m_entries.find(key);
        if (known == m_entries.end())
            m_entries.insert(key, &window);
        else if (*known && (*known)->entryId != window.entryId)
            *known = nullptr;
    }

    void rememberName(const MatchedWindow& window) {
        QString& name = m_names[shared(window)];
        if (name.isEmpty())
            name = window.facts.wmClass.className;
    }

    qint64 m_ownProcess;
    QHash<WindowId, const MatchedWindow*> m_byId;
    /// A window with the entry that all windows of a key share; null when there are several.
    QHash<QString, const MatchedWindow*> m_entries;
    QHash<QString, QString> m_names;
};

} // namespace

std::vector<ApplicationIdentity> groupIntoApplications(const std::vector<MatchedWindow>& windows,
                                                       qint64 ownProcess) {
    const Grouping grouping(windows, ownProcess);
    std::vector<ApplicationIdentity> identities;
    for (const MatchedWindow& window : windows)
        identities.push_back(grouping.identify(window));
    return identities;
}

} // namespace tolvar
