#include "Platform/Linux/X11/ApplicationMatcher.h"

#include <QSet>

#include <array>

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;

bool isShownInMenus(const DesktopEntry& entry) {
    return !entry.noDisplay && entry.appliesHere;
}

void add(QHash<QString, const DesktopEntry*>& index, const QString& key,
         const DesktopEntry& entry) {
    if (key.isEmpty())
        return;
    const DesktopEntry*& best = index[key];
    if (!best || (isShownInMenus(entry) && !isShownInMenus(*best)))
        best = &entry;
}

/// Programs that run other programs: what they are called says nothing of the application.
bool runsOthers(const QString& program) {
    static const QSet<QString> programs{
        u"env"_s,  u"sh"_s,   u"bash"_s, u"dash"_s,     u"java"_s,  u"python3"_s, u"perl"_s,
        u"node"_s, u"wine"_s, u"gjs"_s,  u"electron"_s, u"bwrap"_s, u"flatpak"_s, u"snap"_s,
    };
    return programs.contains(program);
}

/// The id of the desktop entry in the file `path`: what follows the applications folder, with "-"
/// for each "/".
QString entryId(const QString& path) {
    static const QString folder = u"/applications/"_s;
    static const QString suffix = u".desktop"_s;
    const auto at = path.indexOf(folder);
    if (at < 0 || !path.endsWith(suffix))
        return {};
    QString id = path.mid(at + folder.size());
    id.chop(suffix.size());
    return id.replace(u'/', u'-');
}

} // namespace

ApplicationMatcher::ApplicationMatcher(std::vector<DesktopEntry> entries, ProcessLookup lookup)
    : m_entries(std::move(entries))
    , m_lookup(std::move(lookup)) {
    for (const DesktopEntry& entry : m_entries) {
        const QString folded = entry.id.toCaseFolded();
        add(m_byId, entry.id, entry);
        add(m_byStartupWmClass, entry.startupWmClass, entry);
        add(m_byFoldedId, folded, entry);
        if (const auto dot = folded.lastIndexOf(u'.'); dot >= 0)
            add(m_byLastSegment, folded.mid(dot + 1), entry);
    }
    indexPrograms();
}

void ApplicationMatcher::indexPrograms() {
    for (const DesktopEntry& entry : m_entries) {
        if (entry.program.isEmpty() || !isShownInMenus(entry) || runsOthers(entry.program))
            continue;
        const bool isKnown = m_byProgram.contains(entry.program);
        m_byProgram[entry.program] = isKnown ? nullptr : &entry;
    }
}

const DesktopEntry* ApplicationMatcher::match(const WindowFacts& window) const {
    if (const DesktopEntry* named = matchNames(window))
        return named;
    return window.processIdentifier != 0 ? matchProcess(m_lookup(window.processIdentifier))
                                         : nullptr;
}

const DesktopEntry* ApplicationMatcher::matchNames(const WindowFacts& window) const {
    if (const DesktopEntry* own = m_byId.value(window.applicationId))
        return own;
    // A page that a browser shows as an application of its own bears its own instance name beside
    // the browser's class, so the instance is asked first.
    const std::array names{window.wmClass.instanceName, window.wmClass.className};
    for (const QString& name : names)
        if (const DesktopEntry* entry = m_byStartupWmClass.value(name))
            return entry;
    for (const Index* index : {&m_byFoldedId, &m_byLastSegment})
        for (const QString& name : names)
            if (const DesktopEntry* entry = index->value(name.toCaseFolded()))
                return entry;
    return nullptr;
}

const DesktopEntry* ApplicationMatcher::matchProcess(const ProcessFacts& process) const {
    if (const DesktopEntry* launched = m_byId.value(entryId(process.launchedDesktopFile)))
        return launched;
    return m_byProgram.value(process.program);
}

} // namespace tolvar
