#pragma once

#include "Views/Shared/ControlContext.h"

#include <QString>

#include <functional>
#include <vector>

class QWidget;

namespace tolvar::gallery {

/// A sheet of the gallery: its name, which is also that of its picture's file, and what makes it.
struct Page {
    QString name;
    std::function<QWidget*(const ControlContext&)> make;
};

const std::vector<Page>& pages();

} // namespace tolvar::gallery
