#include "base/program_folder.h"
#include "printing.h"

#include <gtest/gtest.h>

TEST(ProgramFolder, OneSeparatorBetweenFolderAndFile)
{
    EXPECT_EQ(PathInFolder("/opt/suite", "lnch.ini"), QString("/opt/suite/lnch.ini"));
    EXPECT_EQ(PathInFolder("/opt/suite/", "lnch.ini"), QString("/opt/suite/lnch.ini"));
    EXPECT_EQ(PathInFolder("/", "lnch.ini"), QString("/lnch.ini"));
    EXPECT_EQ(PathInFolder("/wh", "lnch.ini"), QString("/wh/lnch.ini"));
    EXPECT_EQ(PathInFolder("C:\\", "lnch.ini"), QString("C:\\lnch.ini"));
}
