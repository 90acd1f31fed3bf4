#include "network/tables.h"
#include "network/unsaved.h"

#include <gtest/gtest.h>

TEST(Unsaved, AnEditOrTheOpenedDialogMakesTheNetworkUnsaved)
{
    marksaved();
    EXPECT_FALSE(netunsaved());
    netdirty = true;
    EXPECT_TRUE(netunsaved());
    marksaved();
    EXPECT_FALSE(netdirty);
    markedited();
    EXPECT_TRUE(netunsaved());
    EXPECT_FALSE(netdirty) << "edits elsewhere leave the dialog's mark";
    marksaved();
    EXPECT_FALSE(netunsaved());
}
