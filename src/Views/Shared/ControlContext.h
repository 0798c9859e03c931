#pragma once

namespace tolvar {

class AnimationDriver;
class Feedback;

/// What every control of the window moves and answers with; both outlive the controls.
struct ControlContext {
    AnimationDriver& motion;
    Feedback& feedback;
};

} // namespace tolvar
