#pragma once

#include "Views/ActiveSession/ControlButton.h"
#include "Views/ActiveSession/PauseKeyFace.h"
#include "Views/ActiveSession/PauseLamps.h"
#include "Views/ActiveSession/SymbolSwap.h"

namespace tolvar {

/// The key that pauses and resumes, with a lamp for each pause left. It is latched while the
/// session is paused.
class PauseKey final : public ControlButton {
    Q_OBJECT

public:
    PauseKey(const ControlContext& context, std::function<void()> action, QWidget* parent);

    const PauseKeyFace& face() const { return m_face; }
    void setFace(const PauseKeyFace& face);

protected:
    void hideEvent(QHideEvent* event) override;

private:
    void paintFace(const Canvas& canvas) const;
    void finish();

    PauseKeyFace m_face;
    SymbolSwap m_symbol;
    PauseLamps m_lamps;
};

} // namespace tolvar
