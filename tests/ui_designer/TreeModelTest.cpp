#include "ui_designer/TreeModelTest.h"

#include "ui/designer/TreeModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QMimeData>

namespace mergeloom {
namespace {

QIcon noIcon(const QString& /*key*/) {
    return {};
}

/// Returns the shown nodes below a parent according to the tree's own links: a line each, indented by level.
std::string linesOf(const TreeNode* node, const std::vector<char>& shown, int level = 0) {
    std::string lines;
    for (; node != nullptr; node = node->Next()) {
        if (shown[static_cast<std::size_t>(node->Index())] == 0) continue;
        lines += std::string(static_cast<std::size_t>(level), ' ') + std::to_string(node->Index()) + " " +
                 node->Text() + "\n" + linesOf(node->Child(), shown, level + 1);
    }
    return lines;
}

/// Returns the same as a view sees it. Checks the parent of each node, too.
std::string linesOf(const TreeModel& model, const QModelIndex& parent = {}, int level = 0) {
    std::string lines;
    EXPECT_EQ(model.hasChildren(parent), model.rowCount(parent) > 0);
    for (int row = 0; row < model.rowCount(parent); ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        const TreeNode* const node = model.node(index);
        EXPECT_EQ(index.parent(), parent);
        EXPECT_EQ(model.indexOf(node->Index()), index);
        lines += std::string(static_cast<std::size_t>(level), ' ') + std::to_string(node->Index()) + " " +
                 index.data().toString().toStdString() + "\n" + linesOf(model, index, level + 1);
    }
    return lines;
}

TEST(TreeModel, ShowsRandomTreesAndPartsOfThem) {
    std::mt19937 chance(20240521);
    TreeModel model(noIcon);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    EXPECT_EQ(linesOf(model), "");
    for (int round = 0; round < 60; ++round) {
        const std::shared_ptr<TreeView> tree = randomTree(chance);
        std::vector<char> shown(static_cast<std::size_t>(tree->Count()) + 1, 1);
        model.setTree(tree);
        EXPECT_EQ(linesOf(model), linesOf(tree->First(), shown));

        for (std::size_t node = 1; node < shown.size(); ++node)
            shown[node] = chance() % 4 != 0 ? 1 : 0;
        model.setRows(std::make_shared<TreeModelRows>(TreeModelRows::parentsIn(*tree), shown));
        EXPECT_EQ(linesOf(model), linesOf(tree->First(), shown)) << "round " << round;
    }
    model.setTree(nullptr);
    EXPECT_EQ(linesOf(model), "");
}

TEST(TreeModel, TellsWhatIsHidden) {
    const auto tree = std::make_shared<TreeView>();
    tree->Add(0, 1, "form");
    tree->Add(1, 2, "control");
    tree->Add(2, 0, "Label");
    TreeModel model(noIcon);
    model.setTree(tree);
    model.setRows(
        std::make_shared<TreeModelRows>(TreeModelRows::parentsIn(*tree), std::vector<char>{1, 1, 0, 1}));
    EXPECT_TRUE(model.indexOf(1).isValid());
    EXPECT_FALSE(model.indexOf(2).isValid());
    EXPECT_FALSE(model.indexOf(3).isValid()) << "its parent is hidden";
    EXPECT_FALSE(model.indexOf(0).isValid());
}

TEST(TreeModel, WhatCanBeDraggedAndWhatADragCarries) {
    const auto tree = std::make_shared<TreeView>();
    for (const char* tag : {"", "0", "NoDrag", "nodrag", "NoDragging"})
        tree->Add(0, 0, "node").SetTag(tag);
    TreeModel model(noIcon);
    model.setTree(tree);
    const bool draggable[] = {true, true, false, false, true};
    for (int row = 0; row < 5; ++row) {
        const QModelIndex index = model.index(row, 0);
        const std::unique_ptr<QMimeData> carried(model.mimeData({index}));
        EXPECT_EQ(carried != nullptr, draggable[row]) << row;
        EXPECT_EQ(isDraggable(*model.node(index)), draggable[row]) << row;
    }
    const std::unique_ptr<QMimeData> data(model.mimeData({model.index(0, 0)}));
    EXPECT_EQ(data->formats(), QStringList{QStringLiteral("text/plain")});
    EXPECT_TRUE(data->hasText());
    EXPECT_EQ(data->text(), QString());
    EXPECT_EQ(model.mimeTypes(), data->formats());
}

TEST(TreeModel, AsksForIconsByTheNodesKeys) {
    const auto tree = std::make_shared<TreeView>();
    tree->Add(0, 1, "form").SetImage("Form");
    tree->Add(1, 0, "Label");
    QStringList asked;
    TreeModel model([&](const QString& key) {
        asked << key;
        return QIcon();
    });
    model.setTree(tree);
    for (const int node : {1, 2})
        EXPECT_TRUE(model.data(model.indexOf(node), Qt::DecorationRole).isValid());
    EXPECT_EQ(asked, QStringList({QStringLiteral("Form"), QString()}));
}

}  // namespace
}  // namespace mergeloom
