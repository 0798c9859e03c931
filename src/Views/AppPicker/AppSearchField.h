#pragma once

#include "Views/Shared/ControlContext.h"

#include <QWidget>

namespace tolvar {

class InstrumentField;
class KeyButton;

/// The line that narrows down the applications, with a key to empty it while there is anything.
class AppSearchField final : public QWidget {
    Q_OBJECT

public:
    explicit AppSearchField(const ControlContext& context, QWidget* parent = nullptr);

    InstrumentField& field() { return *m_field; }
    QString text() const;
    void clear();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void textChanged(const QString& text);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void place();

    InstrumentField* m_field = nullptr;
    QWidget* m_symbol = nullptr;
    KeyButton* m_clear = nullptr;
};

} // namespace tolvar
