#include "shell/window/shades.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastContrast = 3; // of a drawing or a large letter
constexpr double kStep = 0.1;

double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

} // namespace

QColor Mixed(const QColor& ground, const QColor& colour, double share)
{
    const auto part = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
    return {part(ground.red(), colour.red()), part(ground.green(), colour.green()), part(ground.blue(), colour.blue())};
}

double Contrast(const QColor& one, const QColor& other)
{
    const double first = Luminance(one);
    const double second = Luminance(other);
    return (std::max(first, second) + 0.05) / (std::min(first, second) + 0.05);
}

QColor SeenOn(const QColor& ground, const QColor& colour)
{
    const QColor far = Contrast(ground, Qt::white) > Contrast(ground, Qt::black) ? Qt::white : Qt::black;
    QColor seen = colour;
    for (double share = kStep; share <= 1 && Contrast(ground, seen) < kLeastContrast; share += kStep)
        seen = Mixed(colour, far, share);
    return seen;
}
