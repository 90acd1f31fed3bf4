#include "base/windows/undostack.h"

#include <QUndoCommand>

#include <gtest/gtest.h>
#include <string>

namespace
{

/// Writes its letter into a log, small when it is taken back.
class Entry : public QUndoCommand
{
public:
    Entry(std::string& into, char name) : QUndoCommand(QString(QLatin1Char(name))), log(into) {}
    void undo() override { log += static_cast<char>(text().at(0).toLower().toLatin1()); }
    void redo() override { log += text().at(0).toLatin1(); }

private:
    std::string& log;
};

class UndoStack : public testing::Test
{
protected:
    void SetUp() override { undostack().clear(); }
    void TearDown() override { undostack().clear(); }

    Entry& push(char name)
    {
        auto* entry = new Entry(log, name);
        undostack().push(entry);
        return *entry;
    }

    std::string log;
};

} // namespace

TEST_F(UndoStack, TakesBackAndDoesAgainInTheOrderOfTime)
{
    push('A');
    push('B');
    EXPECT_EQ(undotext(), QStringLiteral("B"));
    undolast();
    undolast();
    undolast(); // there is no more
    EXPECT_EQ(log, "ABba");
    EXPECT_EQ(undotext(), QString());
    EXPECT_EQ(redotext(), QStringLiteral("A"));
    redolast();
    redolast();
    redolast();
    EXPECT_EQ(log, "ABbaAB");
    EXPECT_EQ(redotext(), QString());
}

TEST_F(UndoStack, PassesOverEntriesWithoutTheirObject)
{
    push('A');
    push('B').setObsolete(true);
    push('C').setObsolete(true);
    EXPECT_EQ(undotext(), QStringLiteral("A"));
    undolast();
    EXPECT_EQ(log, "ABCa");
    EXPECT_EQ(undostack().count(), 1);
    redolast();
    EXPECT_EQ(log, "ABCaA");
}

TEST_F(UndoStack, PassesOverThemOnTheWayForwardToo)
{
    Entry& a = push('A');
    push('B');
    undolast();
    undolast();
    a.setObsolete(true);
    EXPECT_EQ(redotext(), QStringLiteral("B"));
    redolast();
    EXPECT_EQ(log, "ABbaB");
    EXPECT_EQ(redotext(), QString());
}

TEST_F(UndoStack, HasNothingLeftWhereAllObjectsHaveGone)
{
    push('A').setObsolete(true);
    EXPECT_EQ(undotext(), QString());
    undolast();
    EXPECT_EQ(log, "A");
}

TEST_F(UndoStack, HoldsAtLeastAHundredActions)
{
    for (int i = 0; i < 150; ++i)
        push('A');
    for (int i = 0; i < 100; ++i) {
        ASSERT_FALSE(undotext().isEmpty());
        undolast();
    }
    EXPECT_EQ(log, std::string(150, 'A') + std::string(100, 'a'));
}
