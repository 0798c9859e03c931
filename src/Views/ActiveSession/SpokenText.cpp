#include "Views/ActiveSession/SpokenText.h"

#include <QAccessibleWidget>

namespace tolvar {

namespace {

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* text = qobject_cast<SpokenText*>(object);
    return text ? new QAccessibleWidget(text, QAccessible::StaticText) : nullptr;
}

} // namespace

SpokenText::SpokenText(QWidget* parent)
    : QWidget(parent) {
    QAccessible::installFactory(faceOf);
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

} // namespace tolvar
