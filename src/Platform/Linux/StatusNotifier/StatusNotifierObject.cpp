#include "Platform/Linux/StatusNotifier/StatusNotifierObject.h"

#include "Platform/Linux/StatusNotifier/StatusIcon.h"

#include <algorithm>
#include <utility>

namespace tolvar {

StatusNotifierObject::StatusNotifierObject(Identity identity, StatusItemArt art)
    : m_identity(std::move(identity))
    , m_art(std::move(art)) {}

StatusNotifierObject::~StatusNotifierObject() = default;

void StatusNotifierObject::show(const StatusItemContent& content) {
    const int formerStep = step();
    const QString formerLabel = label();
    const QString formerToolTip = std::exchange(m_content, content).toolTip;
    if (step() != formerStep)
        Q_EMIT NewIcon();
    if (label() != formerLabel)
        Q_EMIT XAyatanaNewLabel(label(), labelGuide());
    if (content.toolTip != formerToolTip)
        Q_EMIT NewToolTip();
}

int StatusNotifierObject::step() const {
    return StatusIcon::stepFor(m_content.opacity);
}

QString StatusNotifierObject::iconName() const {
    return StatusIcon::nameOf(step());
}

StatusIconPixmaps StatusNotifierObject::iconPixmap() const {
    const auto known = m_pixmaps.find(step());
    if (known != m_pixmaps.end())
        return known->second;
    return m_pixmaps.emplace(step(), StatusIcon::pixmaps(m_art, step())).first->second;
}

QString StatusNotifierObject::labelGuide() const {
    QString guide = label();
    std::replace_if(
        guide.begin(), guide.end(), [](QChar letter) { return letter.isDigit(); }, u'0');
    return guide;
}

} // namespace tolvar
