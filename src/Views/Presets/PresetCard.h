#pragma once

#include "Views/Presets/PresetCardContent.h"
#include "Views/Shared/ControlContext.h"

#include <QUuid>
#include <QWidget>

namespace tolvar {

class ApplicationIcons;
class KeyButton;

/// A preset as a card, with a key to start it. It can be given to another preset at any time.
class PresetCard final : public QWidget {
    Q_OBJECT

public:
    /// Points.
    static constexpr int fixedHeight = 66;

    /// `icons` outlives the card.
    PresetCard(const ControlContext& context, ApplicationIcons& icons, QWidget* parent = nullptr);

    const PresetCardContent& content() const { return m_content; }
    void setContent(const PresetCardContent& content, const QUuid& id);

    QSize sizeHint() const override;

Q_SIGNALS:
    /// The key was pressed for the preset with this id.
    void selected(const QUuid& id);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Where its parts stand.
    struct Places {
        QRectF name;
        QRectF blocked;
        QRectF duration;
        QRectF start;
    };

    Places places() const;
    void placeKey();

    ApplicationIcons& m_icons;
    PresetCardContent m_content;
    QUuid m_id;
    KeyButton* m_start;
};

} // namespace tolvar
