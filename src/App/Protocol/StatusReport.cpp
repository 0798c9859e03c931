#include "App/Protocol/StatusReport.h"

namespace tolvar {

namespace {

using namespace Qt::StringLiterals;
using State = StatusReport::State;

State stateNamed(const QString& name) {
    for (const State state : {State::ready, State::focusing, State::paused})
        if (stateName(state) == name)
            return state;
    return State::off;
}

} // namespace

QString stateName(State state) {
    switch (state) {
    case State::off:
        return u"off"_s;
    case State::ready:
        return u"ready"_s;
    case State::focusing:
        return u"focusing"_s;
    case State::paused:
        return u"paused"_s;
    }
    Q_UNREACHABLE();
}

QVariantMap toProperties(const StatusReport& report) {
    return {
        {u"Status"_s, stateName(report.state)},
        {u"Goal"_s, report.goal},
        {u"Duration"_s, report.duration},
        {u"Remaining"_s, report.remaining},
        {u"Elapsed"_s, report.elapsed},
        {u"PauseRemaining"_s, report.pauseRemaining},
        {u"PausesLeft"_s, report.pausesLeft},
        {u"BlockedApps"_s, report.blockedApps},
        {u"BlockedWebsites"_s, report.blockedWebsites},
    };
}

StatusReport statusFromProperties(const QVariantMap& properties) {
    return {
        .state = stateNamed(properties.value(u"Status"_s).toString()),
        .goal = properties.value(u"Goal"_s).toString(),
        .duration = properties.value(u"Duration"_s).toDouble(),
        .remaining = properties.value(u"Remaining"_s).toDouble(),
        .elapsed = properties.value(u"Elapsed"_s).toDouble(),
        .pauseRemaining = properties.value(u"PauseRemaining"_s).toInt(),
        .pausesLeft = properties.value(u"PausesLeft"_s).toInt(),
        .blockedApps = properties.value(u"BlockedApps"_s).toStringList(),
        .blockedWebsites = properties.value(u"BlockedWebsites"_s).toStringList(),
    };
}

} // namespace tolvar
