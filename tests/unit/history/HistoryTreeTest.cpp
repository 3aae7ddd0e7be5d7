// Where undo and redo lead in the tree of states.
#include "history/HistoryTree.h"

#include <gtest/gtest.h>

using namespace velorin;

namespace {

/// start --- 1 --- 2 --- 3
HistoryTree threeStates() {
    HistoryTree tree;
    for (StateId state = 1; state <= 3; ++state)
        tree.add(state, {});
    return tree;
}

} // namespace

TEST(HistoryTreeTest, UndoLeadsToTheStateThatWasChangedAndRedoBack) {
    HistoryTree tree = threeStates();
    EXPECT_EQ(tree.undoTarget(), 2);
    EXPECT_FALSE(tree.canRedo());
    tree.goTo(2);
    tree.goTo(1);
    EXPECT_EQ(tree.redoTarget(), 2);
    tree.goTo(0);
    EXPECT_FALSE(tree.canUndo());
    EXPECT_EQ(tree.redoTarget(), 1);
}

TEST(HistoryTreeTest, ChangeAfterAnUndoStartsABranchAndKeepsTheOther) {
    HistoryTree tree = threeStates();
    tree.goTo(1);
    tree.add(4, {});
    EXPECT_EQ(tree.undoTarget(), 1);
    tree.goTo(1);
    EXPECT_EQ(tree.redoTarget(), 4);
    EXPECT_TRUE(tree.has(3));
}

TEST(HistoryTreeTest, StatesThatAreNotOnTheWayFromTheStartAreUndone) {
    HistoryTree tree = threeStates();
    tree.goTo(1);
    EXPECT_FALSE(tree.isUndone(1));
    EXPECT_TRUE(tree.isUndone(2));
    EXPECT_TRUE(tree.isUndone(3));
    tree.add(4, {});
    EXPECT_FALSE(tree.isUndone(4));
    EXPECT_TRUE(tree.isUndone(2));
    EXPECT_FALSE(tree.isUndone(77)) << "of another run";
}

TEST(HistoryTreeTest, BranchHoldsTheStatesBeforeAndAfter) {
    HistoryTree tree = threeStates();
    tree.goTo(1);
    tree.add(4, {});
    tree.goTo(1);
    EXPECT_TRUE(tree.isOnBranch(0));
    EXPECT_TRUE(tree.isOnBranch(3)) << "after the current one on another branch";
    tree.goTo(4);
    EXPECT_FALSE(tree.isOnBranch(3));
    EXPECT_FALSE(tree.isOnBranch(77));
}

TEST(HistoryTreeTest, RedoComesBackTheWayThatAJumpTook) {
    HistoryTree tree = threeStates();
    tree.goTo(1);
    tree.add(4, {});
    tree.goTo(0);
    tree.goTo(3);
    EXPECT_EQ(tree.current(), 3);
    tree.goTo(0);
    EXPECT_EQ(tree.redoTarget(), 1);
    tree.goTo(1);
    EXPECT_EQ(tree.redoTarget(), 2) << "not 4, which was left earlier";
}

TEST(HistoryTreeTest, NameComesBackWithTheChangeThatChangedIt) {
    HistoryTree tree;
    tree.add(1, {"", ""});
    tree.add(2, {"", "boat.sng"});
    tree.add(3, {"boat.sng", "boat.sng"});
    EXPECT_EQ(tree.goTo(2), nullptr) << "the name stays";
    const std::string* name = tree.goTo(1);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(*name, "");
    name = tree.goTo(3);
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(*name, "boat.sng");
}

TEST(HistoryTreeTest, ClearLeavesTheCurrentStateAlone) {
    HistoryTree tree = threeStates();
    tree.clear(9);
    EXPECT_EQ(tree.current(), 9);
    EXPECT_EQ(tree.undoTarget(), 0);
    EXPECT_FALSE(tree.has(3));
    tree.clear(0);
    EXPECT_FALSE(tree.canUndo());
}
