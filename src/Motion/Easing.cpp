#include "Motion/Easing.h"

#include "Motion/MotionLimits.h"

#include <algorithm>
#include <cmath>

namespace tolvar {

double Easing::Axis::at(double s) const {
    const double rest = 1 - s;
    return 3 * rest * rest * s * first + 3 * rest * s * s * second + s * s * s;
}

double Easing::Axis::derivative(double s) const {
    const double rest = 1 - s;
    return 3 * (rest * rest * first + 2 * rest * s * (second - first) + s * s * (1 - second));
}

double Easing::Axis::secondDerivative(double s) const {
    return 6 * ((1 - s) * (second - 2 * first) + s * (1 - 2 * second + first));
}

Easing::Easing(double x1, double y1, double x2, double y2) {
    if (!motion::isUsableValue(x1) || !motion::isUsableValue(y1) || !motion::isUsableValue(x2) ||
        !motion::isUsableValue(y2))
        return;
    m_x = {std::clamp(x1, 0.0, 1.0), std::clamp(x2, 0.0, 1.0)};
    m_y = {y1, y2};
}

Easing Easing::linear() {
    return {};
}

Easing Easing::easeIn() {
    return {0.42, 0, 1, 1};
}

Easing Easing::easeOut() {
    return {0, 0, 0.58, 1};
}

Easing Easing::easeInOut() {
    return {0.42, 0, 0.58, 1};
}

double Easing::progress(double time) const {
    if (!(time > 0))
        return 0;
    return time >= 1 ? 1 : m_y.at(parameterAt(time));
}

double Easing::slope(double time) const {
    const double parameter = time > 0 ? parameterAt(std::min(time, 1.0)) : 0;
    double run = m_x.derivative(parameter);
    double rise = m_y.derivative(parameter);
    if (run == 0) {
        // Where both stand still, as at an end with a control point on it, the slope is the limit.
        const double direction = parameter < 1 ? 1 : -1;
        if (rise == 0) {
            run = m_x.secondDerivative(parameter) * direction;
            rise = m_y.secondDerivative(parameter) * direction;
        }
    }
    return run > 0 ? rise / run : 0;
}

/// Newton's method, kept within a bracket that shrinks: x rises everywhere.
double Easing::parameterAt(double time) const {
    constexpr int mostSteps = 100;
    constexpr double closeEnough = 1e-16;
    double low = 0;
    double high = 1;
    double parameter = time;
    for (int step = 0; step < mostSteps && high - low > closeEnough; ++step) {
        const double error = m_x.at(parameter) - time;
        if (error == 0)
            break;
        (error < 0 ? low : high) = parameter;
        const double newton = parameter - error / m_x.derivative(parameter);
        const double next = newton > low && newton < high ? newton : (low + high) / 2;
        if (next == parameter)
            break;
        parameter = next;
    }
    return parameter;
}

} // namespace tolvar
