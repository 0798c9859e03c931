#pragma once

#include <QWidget>

namespace tolvar {

/// A picture that is text to assistive technology: what it says is its accessible name.
class SpokenText : public QWidget {
    Q_OBJECT

public:
    explicit SpokenText(QWidget* parent = nullptr);
};

} // namespace tolvar
