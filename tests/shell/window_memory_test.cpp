#include "shell/window_memory.h"

#include <gtest/gtest.h>

TEST(WindowMemory, APlaceIsFittedToItsScreen)
{
    const QRect room(0, 30, 1366, 738);
    const struct
    {
        QRect place;
        QRect fitted;
    } cases[] = {
        {{20, 40, 1180, 700}, {20, 40, 1180, 700}},   // as it was
        {{0, 0, 1180, 700}, {0, 30, 1180, 700}},      // its title would be above the screen
        {{900, 300, 600, 600}, {766, 168, 600, 600}}, // beyond the edges
        {{3000, 30, 800, 600}, {566, 30, 800, 600}},  // on a screen that is no longer there
        {{-200, 0, 2000, 1500}, {0, 30, 1366, 738}},  // larger than it
    };
    for (const auto& c : cases)
        EXPECT_EQ(FittedPlace(c.place, room), c.fitted) << c.place.x() << " " << c.place.y();
}
