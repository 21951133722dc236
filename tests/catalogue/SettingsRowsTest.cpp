// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SettingsRows.h"
#include "support/store/StoreFixture.h"

using namespace Qt::StringLiterals;
using namespace quaverly;
using namespace quaverly::test;

namespace {

class Settings : public ::testing::Test
{
protected:
    StoreFixture store;
    SettingsRows &rows = store.settings();
};

TEST_F(Settings, NumbersAreReadAsFarAsTheyAreSome)
{
    const struct
    {
        QVariant name;
        qint16 assign;
        qint64 templateId;
        std::optional<quint32> colour;
        bool isTrue;
        int box;
    } cases[] = {
        {QVariant(), 0, 0, std::nullopt, false, 0},
        {u""_s, 0, 0, std::nullopt, false, 0},
        {u"teal"_s, 0, 0, std::nullopt, false, 0},
        {u"-1"_s, 1, 0, std::nullopt, true, 0},
        {u"1"_s, 1, 1, 1, false, 1},
        {u"True"_s, 0, 0, std::nullopt, true, 0},
        {u"8421440"_s, 0, 8421440, 8421440, false, 0},
        {u"16777216"_s, 0, 16777216, std::nullopt, false, 0},
        {u"99999999999"_s, 0, 0, std::nullopt, false, 0},
        {u"1e300"_s, 0, 0, std::nullopt, false, 0},
    };
    for (const auto &c : cases) {
        store.db().Execute(u"Delete * from tblSettings"_s);
        for (const auto *type : {settings::AssignCategoryOnAdd, settings::TemplateRecordID,
                                 settings::BackColor, settings::CategoryStartup, settings::Tablet})
            store.addRow(u"tblSettings"_s, {{u"Type"_s, QString::fromUtf16(type)}, {u"Name"_s, c.name}});
        const std::string what = c.name.toString().toStdString();
        EXPECT_EQ(rows.assignCategoryOnAdd(), c.assign) << what;
        EXPECT_EQ(rows.templateRecordID(), c.templateId) << what;
        EXPECT_EQ(rows.backColor(), c.colour) << what;
        EXPECT_EQ(rows.tablet(), c.isTrue) << what;
        EXPECT_EQ(rows.categoryAtStartup(), c.isTrue || c.box == 1) << what;
    }
}

TEST_F(Settings, AKindKeepsOneRowThroughManyWrites)
{
    for (const bool on : {true, false}) {
        rows.storeTablet(on);
        rows.storeGridSortOrder(on ? u"Rating"_s : u"Genre"_s);
        rows.storeCategory(on ? u"Jazz"_s : u"Soul"_s, u" CategoryNumber = 2 "_s);
        rows.storeBackColor(on ? 255 : 8421440);
        rows.storeTemplateRecordID(on ? 17 : 0);
        rows.storeCategoryStartupBox(on ? 1 : 0);
        rows.storeAssignCategoryOnAdd(on ? 1 : 0);
    }
    EXPECT_EQ(store.valueOf(u"Select count(*) from tblSettings"_s), 7);
    store.reopen();
    EXPECT_EQ(store.column(u"Select Name from tblSettings Where Type='tablet'"_s), QStringList(u"False"_s));
    EXPECT_EQ(rows.gridSortOrder(), u"Genre"_s);
    EXPECT_EQ(rows.category()->Name, u"Soul"_s);
    EXPECT_EQ(rows.category()->Setting1, u" CategoryNumber = 2 "_s);
    EXPECT_EQ(rows.backColor(), 8421440U);
    // The row stays and names no song.
    EXPECT_TRUE(rows.find(u"TEMPLATE RecordID"_s));
    EXPECT_EQ(rows.templateRecordID(), 0);
    rows.removeCategory();
    EXPECT_FALSE(rows.category());
}

} // namespace
