#pragma once

// How this build is sold: as part of the suite, or as a module alone. It is fixed here and nowhere else; a build
// that is sold alone changes this one word.

#include <QStringView>

inline constexpr QStringView kStandAloneMode = u"单独操作";
inline constexpr QStringView kModuleRunMode = u"非单独操作";
