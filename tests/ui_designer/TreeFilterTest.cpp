#include "ui/designer/TreeFilter.h"
#include "ui_designer/TreeModelTest.h"

#include <gtest/gtest.h>

#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <set>

namespace mergeloom {
namespace {

bool neverOutdated() {
    return false;
}

/// The expected result of a search, found by checking the nodes one by one.
struct Expected {
    std::set<int> shown;
    std::set<int> expanded;
    int count = 0;
    int first = 0;
};

template <typename Matches>
Expected searchPlainly(TreeView& tree, const Matches& matches) {
    Expected expected;
    for (int number = 1; number <= tree.Count(); ++number) {
        const TreeNode& node = *tree.Item(number);
        const TreeNode* const parent = node.Parent();
        const bool isDropKind = node.Key().empty() && parent != nullptr && !parent->Key().empty();
        if (isDropKind && matches(*parent)) expected.shown.insert(number);
        if (!matches(node)) continue;
        if (expected.count++ == 0) expected.first = number;
        expected.shown.insert(number);
        for (const TreeNode* above = parent; above != nullptr; above = above->Parent()) {
            expected.shown.insert(above->Index());
            expected.expanded.insert(above->Index());
        }
    }
    return expected;
}

std::set<int> shownIn(const TreeModelRows& rows, int nodes) {
    std::set<int> shown;
    for (int node = 1; node <= nodes; ++node) {
        if (rows.row(node) >= 0) shown.insert(node);
    }
    return shown;
}

TEST(TreeFilter, FindsWhatAPlainSearchFinds) {
    std::mt19937 chance(4711);
    struct {
        const char16_t* words;
        std::set<std::string> texts;
    } const searches[] = {
        {u"order", {"Order", "order date", "Date of order"}},
        {u"DATE ord", {"order date", "Date of order"}},
        {u"label", {"Label"}},
        {u"gros", {"Größe"}},
        {u"r", {"Order", "order date", "Ort", "Größe", "Tür", "Date of order"}},
        {u"order label", {}},
    };
    for (int round = 0; round < 40; ++round) {
        const std::shared_ptr<TreeView> tree = randomTree(chance);
        const TreeFilterIndex index(*tree);
        for (const auto& search : searches) {
            const auto found = index.find(QString::fromUtf16(search.words), neverOutdated);
            const Expected expected = searchPlainly(
                *tree, [&](const TreeNode& node) { return search.texts.contains(node.Text()); });
            ASSERT_TRUE(found);
            EXPECT_EQ(shownIn(*found->rows, tree->Count()), expected.shown);
            EXPECT_EQ(std::set(found->expanded.begin(), found->expanded.end()), expected.expanded);
            EXPECT_TRUE(std::ranges::is_sorted(found->expanded));
            EXPECT_EQ(found->count, expected.count);
            EXPECT_EQ(found->first, expected.first);
        }
    }
}

TEST(TreeFilter, CaseAndAccentsDoNotCount) {
    struct {
        const char* text;
        const char16_t* words;
        bool found;
    } const cases[] = {
        {"Ärger", u"arger", true},
        {"arger", u"ÄRGER", true},
        {"A\u0308rger", u"ärg", true},  // the same in two characters
        {"Straße", u"STRASSE", true},
        {"Łódź", u"odz", true},
        {"ΚΑΦΕΣ", u"καφες", true},
        {"25 \u00d7 200 mm", u"× 25", true},
        {"ﬁrma", u"firma", true},  // a ligature
        {"Order Date", u"  date   ORDER ", true},
        {"Order Date", u"orderdate", false},
        {"Order", u"Orders", false},
        {"Ort\xff", u"ort", true},  // bytes that are no UTF-8
    };
    for (const auto& c : cases) {
        TreeView tree;
        tree.Add(0, 1, c.text);
        const auto found = TreeFilterIndex(tree).find(QString::fromUtf16(c.words), neverOutdated);
        EXPECT_EQ(found->count, c.found ? 1 : 0) << c.text;
    }
}

TEST(TreeFilter, GivesUpWhatNobodyWaitsFor) {
    TreeView tree;
    tree.Add(0, 1, "order");
    EXPECT_FALSE(TreeFilterIndex(tree).find(QStringLiteral("order"), [] { return true; }));
}

class TreeFilterThread : public testing::Test {
  protected:
    TreeFilterThread() {
        QObject::connect(&filter_, &TreeFilter::found, &filter_,
                         [this](const auto& matches) { counts_.push_back(matches->count); });
    }

    static std::shared_ptr<TreeView> treeOf(int nodes) {
        auto tree = std::make_shared<TreeView>();
        for (int number = 1; number <= nodes; ++number)
            tree->Add(0, number, std::to_string(number));
        return tree;
    }

    /// Waits for one more result.
    [[nodiscard]] bool waitForAnswer() {
        return QTest::qWaitFor([this, before = counts_.size()] { return counts_.size() > before; });
    }

    TreeFilter filter_;
    std::vector<int> counts_;
};

TEST_F(TreeFilterThread, OnlyTheNewestSearchIsAnswered) {
    filter_.setTree(treeOf(100));
    for (const char16_t* words : {u"1", u"10", u"100"})
        filter_.find(QString::fromUtf16(words));
    ASSERT_TRUE(waitForAnswer());
    QTest::qWait(30);
    EXPECT_EQ(counts_, std::vector{1});
    // A pending result is not emitted after the next search begins.
    filter_.find(QStringLiteral("1"));
    QThread::msleep(30);
    filter_.find(QStringLiteral("zero"));
    ASSERT_TRUE(waitForAnswer());
    EXPECT_EQ(counts_, (std::vector{1, 0}));
}

TEST_F(TreeFilterThread, ATreeTakesThePlaceOfAnother) {
    filter_.find(QStringLiteral("1"));  // in no tree
    filter_.setTree(treeOf(100));
    filter_.find(QStringLiteral("9"));
    filter_.cancel();
    QTest::qWait(30);
    EXPECT_TRUE(counts_.empty());
    filter_.setTree(treeOf(9));
    filter_.find(QStringLiteral("9"));
    ASSERT_TRUE(waitForAnswer());
    EXPECT_EQ(counts_, std::vector{1});
}

}  // namespace
}  // namespace mergeloom
