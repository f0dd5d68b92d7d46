// SPDX-License-Identifier: LGPL-2.1-or-later
// The tenant frame on each product through its real widgets: rights, defaults, the hidden code
// and the selection's filter.
#include "dataaccess.h"
#include "frmmandantencommon.h"
#include "globals.h"
#include "tcedit.h"
#include "tcselecttomask.h"
#include "tenantdata.h"
#include "goldentrace.h"
#include "testdatabase.h"
#include "whenshown.h"

#include <QLineEdit>
#include <QStandardItemModel>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

TCTableDef maskTable()
{
    return { u"Fahrzeug"_s,
             { { u"ID"_s, u"Varchar(43)"_s }, { u"MANDANT"_s, u"Varchar(80)"_s, 0, u"Mandant"_s },
               { u"IDMANDANT"_s, u"Numeric(10,0)"_s }, { u"MANDANTID"_s, u"Varchar(40)"_s } },
             {},
             {} };
}

class FrmMandantenTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        tenants_CreateTables();
        tenants_AddSampleData();
        tenants_SignInSampleUser();
    }
    TCDataAccess mask{ maskTable(), nullptr };
};

TEST_F(FrmMandantenTest, LoadedSetsDefaultsAndTheRightToChange)
{
    const struct {
        const char *name;
        QString rights;
        bool unrestricted, mayChange;
    } cases[] = {
        { "[2:150] only", u"[7010:20][2:150]"_s, false, true },
        { "[0002:150]", u"[0002:150]"_s, false, true },
        { "another right of 0002", u"[0002:15][20:150]"_s, false, false },
        { "no rights", QString(), false, false },
        { "unrestricted user keeps the design", QString(), true, true },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        TCDataAccess data(maskTable(), nullptr);
        User.Rights = c.rights;
        User.NoMandantRestriction = c.unrestricted;
        TfrmMandanten frame;
        frame.Bind(&data);
        frame.Loaded();
        const TCFieldDef *field = data.GetFieldFromName(u"MANDANT"_s);
        EXPECT_TRUE(field->Required);
        EXPECT_TRUE(frame.Mandant->cEditStyle.Mandatory());
        EXPECT_EQ(field->Enabled, c.mayChange);
        EXPECT_EQ(frame.Mandant->lineEdit()->isReadOnly(), !c.mayChange);
        EXPECT_EQ(field->DefaultValue, u"Freiwillige Feuerwehr Musterstadt"_s);
        EXPECT_EQ(data.GetFieldFromName(u"MANDANTID"_s)->DefaultValue, u"FFM"_s);
    }
}

// The defaults read for the signed-in user, then the selection of a restricted user.
TEST_F(FrmMandantenTest, GoldenStatementsOfTheFrame)
{
    kx::SqlTraceCapture trace;
    TfrmMandanten frame;
    frame.Bind(&mask);
    frame.Loaded();
    frame.show();
    std::unique_ptr<TCSelectDialog> dialog(frame.MandantSelect->CreateDialog(&frame));
    kxtest::expectGoldenTrace(u"tenants-frame"_s, trace.statements(), { { User.Id, u"<user>"_s } });
}

TEST_F(FrmMandantenTest, FailedReadsLeaveTheDefaultsEmpty)
{
    kxtest::exec(u"drop table User_User"_s);
    TfrmMandanten frame;
    frame.Bind(&mask);
    EXPECT_NO_THROW(frame.Loaded());
    EXPECT_TRUE(mask.GetFieldFromName(u"MANDANT"_s)->DefaultValue.isEmpty());
    EXPECT_TRUE(mask.GetFieldFromName(u"MANDANT"_s)->Enabled); // "[2:150]"
    // An unbound frame does nothing.
    TfrmMandanten unbound;
    unbound.Loaded();
    EXPECT_FALSE(unbound.Mandant->cEditStyle.Mandatory());
}

TEST_F(FrmMandantenTest, ClearingTheTenantClearsTheHiddenCode)
{
    TfrmMandanten frame;
    frame.Bind(&mask);
    frame.Loaded();
    frame.Mandant->LoadDefault();
    frame.MandantId->LoadDefault();
    EXPECT_EQ(frame.MandantId->Text(), u"FFM"_s);
    QLineEdit *edit = frame.Mandant->lineEdit();
    QTest::keyClick(edit, Qt::Key_Backspace); // still a name: the code stays
    EXPECT_EQ(frame.MandantId->Text(), u"FFM"_s);
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    EXPECT_TRUE(frame.Mandant->Text().isEmpty());
    EXPECT_TRUE(frame.MandantId->Text().isEmpty());
    EXPECT_FALSE(frame.IdMandant->isVisible() || frame.MandantId->isVisible());
}

TEST_F(FrmMandantenTest, SelectionOffersTheUsersTenantsAndFillsTheEdits)
{
    const struct {
        const char *name;
        bool unrestricted;
        QStringList filter;
        int rows;
    } cases[] = {
        { "restricted", false, { u"Where Mandantid in ('FFM','FFM-N','FFM-S')"_s }, 3 },
        { "unrestricted", true, {}, 6 },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        User.NoMandantRestriction = c.unrestricted;
        TfrmMandanten frame;
        frame.Bind(&mask);
        frame.MandantSelect->Filter << u"Where 1=2"_s; // left over from an earlier selection
        frame.show();
        std::unique_ptr<TCSelectDialog> dialog(frame.MandantSelect->CreateDialog(&frame));
        EXPECT_EQ(frame.MandantSelect->Filter, c.filter);
        EXPECT_EQ(dialog->model()->rowCount(), c.rows);
    }

    // Chosen in the open dialog: the name, the key and the code go into their edits.
    User.NoMandantRestriction = false;
    TfrmMandanten frame;
    frame.Bind(&mask);
    frame.show();
    frame.Mandant->setText(u"Löschzug Musterstadt-Süd"_s);
    bool chosenInDialog = false;
    kxtest::whenShown<TCSelectDialog>([&](TCSelectDialog *dialog) {
        // Exact selection preselects the row of the edit's text.
        const QList<QStringList> chosen = dialog->chosenRows();
        ASSERT_EQ(chosen.size(), 1);
        chosenInDialog = chosen.first().value(4) == u"FFM-S"_s;
        dialog->accept();
    });
    EXPECT_TRUE(frame.MandantSelect->Execute(frame.Mandant));
    EXPECT_TRUE(chosenInDialog);
    EXPECT_EQ(frame.IdMandant->Text(), u"4"_s);
    EXPECT_EQ(frame.MandantId->Text(), u"FFM-S"_s);
}

} // namespace
