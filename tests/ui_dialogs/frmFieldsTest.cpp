#include "doubles/ModalUser.h"
#include "ui/dialogs/frmFields.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QtTest>

namespace mergeloom {
namespace {

class NoErrors final : public ErrorHandler {
  public:
    void report(const ErrorReport& report) override { ADD_FAILURE() << report.description; }
};

QListView& listOf(QWidget& window) {
    return *window.findChild<QListView*>(QStringLiteral("lstFields"));
}

QPushButton& namedButton(QWidget& window, const char* name) {
    return *window.findChild<QPushButton*>(QLatin1String(name));
}

/// Presses a button by its letter and waits until it is released.
void press(QWidget& window, const char* name, Qt::Key letter) {
    QSignalSpy clicked(&namedButton(window, name), &QPushButton::clicked);
    QTest::keyClick(&window, letter, Qt::AltModifier);
    EXPECT_TRUE(clicked.count() > 0 || clicked.wait(2000)) << name;
}

/// Returns the place of a row's check mark.
QPoint checkMark(const QListView& list, int row) {
    QStyleOptionViewItem option;
    option.initFrom(&list);
    option.rect = list.visualRect(list.model()->index(row, 0));
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    return list.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &list).center();
}

class frmFieldsTest : public testing::Test {
  protected:
    frmFieldsTest() {
        for (const char* text : {"A", "B", "C", "D"})
            fields.AddItem(text, text[0]);
        fields.SetInsertHandler([this] {
            inserted = shown();
            fields.SetVisible(false);
        });
    }

    /// Returns a letter for each field, in lower case if it is not selected.
    [[nodiscard]] std::string shown() const {
        std::string text;
        for (const FieldSelection::Item& item : fields.items())
            text += item.selected ? item.text : std::string(1, static_cast<char>(item.text[0] + 32));
        return text;
    }
    void run(const ModalUser::Step& step) {
        const ModalUser user({step});
        fields.SetVisible(true);
        frmFields(nullptr, errors).Show(fields);
        EXPECT_FALSE(fields.Visible());
    }

    NoErrors errors;
    FieldSelection fields;
    std::string inserted = "nothing";
};

TEST_F(frmFieldsTest, CaptionsAndTabOrder) {
    run([](QWidget& window) {
        EXPECT_EQ(window.windowTitle(), QStringLiteral("Select Fields"));
        const std::pair<const char*, const char*> captions[] = {{"btnInsert", "&Insert"},
                                                                {"btnUp", "&Up"},
                                                                {"btnDown", "&Down "},
                                                                {"btnSelect", "&Select All"},
                                                                {"btnUnSelect", "U&nselect All"}};
        const QWidget* control = &listOf(window);
        EXPECT_EQ(window.focusWidget(), control) << "where the keys go first";
        for (const auto& [name, caption] : captions) {
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
            EXPECT_EQ(window.focusWidget()->objectName(), QLatin1String(name));
            EXPECT_EQ(namedButton(window, name).text(), QLatin1String(caption));
        }
        window.close();
    });
}

TEST_F(frmFieldsTest, ControlsAreWhereTheyWereDrawn) {
    const QFont font = QApplication::font();
    for (const int pixelSize : {9, 40}) {
        QFont sized = font;
        sized.setPixelSize(pixelSize);
        QApplication::setFont(sized);
        run([pixelSize](QWidget& window) {
            const double across = window.width() / 4830.0;
            const double down = window.height() / 3780.0;
            if (pixelSize == 9) {
                EXPECT_NEAR(across, window.screen()->logicalDotsPerInchX() / 1440, 0.001);
                EXPECT_NEAR(down, window.screen()->logicalDotsPerInchY() / 1440, 0.001);
            }
            const auto expectPlace = [&](const char* name, const QRect& twips) {
                const QRect place = window.findChild<QWidget*>(QLatin1String(name))->geometry();
                EXPECT_NEAR(place.x(), twips.x() * across, 1) << name;
                EXPECT_NEAR(place.y(), twips.y() * down, 1) << name;
                EXPECT_NEAR(place.width(), twips.width() * across, 1) << name;
                EXPECT_NEAR(place.height(), twips.height() * down, 1) << name;
            };
            expectPlace("lstFields", {60, 60, 3315, 3660});
            expectPlace("btnInsert", {3480, 120, 1215, 375});
            expectPlace("btnUp", {3480, 1620, 1215, 375});
            expectPlace("btnDown", {3480, 2100, 1215, 375});
            expectPlace("btnSelect", {3480, 2820, 1215, 375});
            expectPlace("btnUnSelect", {3480, 3300, 1215, 375});
            const QPushButton& widest = namedButton(window, "btnUnSelect");
            EXPECT_LT(widest.fontMetrics().horizontalAdvance(QStringLiteral("Unselect All")), widest.width());
            EXPECT_LT(widest.fontMetrics().height(), widest.height());
            window.close();
        });
    }
    QApplication::setFont(font);
}

TEST_F(frmFieldsTest, InsertsByKeys) {
    run([](QWidget& window) {
        QTest::keyClick(&listOf(window), Qt::Key_Space);
        press(window, "btnDown", Qt::Key_D);
        press(window, "btnDown", Qt::Key_D);
        QTest::keyClick(&listOf(window), Qt::Key_Down);
        press(window, "btnUp", Qt::Key_U);
        QTest::keyClick(&listOf(window), Qt::Key_Return);
    });
    EXPECT_EQ(inserted, "BCDa");
    EXPECT_EQ(fields.ListIndex(), 2) << "the current field goes along";
}

TEST_F(frmFieldsTest, InsertsByMouse) {
    run([](QWidget& window) {
        QListView& list = listOf(window);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, checkMark(list, 1));
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                          list.visualRect(list.model()->index(3, 0)).center());
        QTest::mouseClick(&namedButton(window, "btnUp"), Qt::LeftButton);
        QTest::mouseClick(&namedButton(window, "btnInsert"), Qt::LeftButton);
    });
    EXPECT_EQ(inserted, "AbDC");
}

TEST_F(frmFieldsTest, AllAndNone) {
    run([this](QWidget& window) {
        press(window, "btnUnSelect", Qt::Key_N);
        EXPECT_EQ(shown(), "abcd");
        press(window, "btnDown", Qt::Key_D);
        EXPECT_EQ(shown(), "abcd") << "nothing moves while no field is selected";
        EXPECT_FALSE(listOf(window).model()->moveRow({}, 0, {}, 3)) << "nor is it dragged";
        press(window, "btnSelect", Qt::Key_S);
        EXPECT_EQ(shown(), "ABCD");
        EXPECT_EQ(listOf(window).model()->index(2, 0).data(Qt::CheckStateRole), Qt::Checked);
        window.close();
    });
}

TEST_F(frmFieldsTest, ClosedItChoosesNothing) {
    run([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    EXPECT_EQ(inserted, "nothing");
}

TEST_F(frmFieldsTest, RowsCanBeDragged) {
    run([this](QWidget& window) {
        QListView& list = listOf(window);
        list.setCurrentIndex(list.model()->index(0, 0));
        QAbstractItemModel& model = *list.model();
        EXPECT_TRUE(model.moveRow({}, 0, {}, 3));
        EXPECT_EQ(shown(), "BCAD");
        EXPECT_EQ(list.currentIndex().row(), 2);
        EXPECT_TRUE(model.moveRow({}, 3, {}, 0));
        EXPECT_EQ(shown(), "DBCA");
        EXPECT_FALSE(model.moveRow({}, 1, {}, 1)) << "onto itself";
        EXPECT_FALSE(model.moveRow({}, 1, {}, 2)) << "behind itself";
        EXPECT_EQ(model.index(0, 0).data(), QStringLiteral("D"));
        EXPECT_EQ(list.currentIndex().row(), fields.ListIndex());
        window.close();
    });
}

TEST_F(frmFieldsTest, AnEmptyListCanBeClosed) {
    fields = FieldSelection();
    run([](QWidget& window) {
        for (const char* name : {"btnUp", "btnDown", "btnSelect", "btnUnSelect"})
            namedButton(window, name).click();
        window.close();
    });
}

}  // namespace
}  // namespace mergeloom
