// SPDX-License-Identifier: LGPL-2.1-or-later
// The address frame on each product through its real widgets: the pick lists and their
// statements, the fields cleared when one above them no longer fits, and a broken statement.
#include "dispatchdata.h"
#include "frmplzortstrassecommon.h"
#include "scriptedmessages.h"
#include "sqlconnection.h"
#include "tcedit.h"
#include "goldentrace.h"
#include "testdatabase.h"

#include <QApplication>
#include <QLineEdit>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class FrmPlzOrtStrasseTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        dispatch_CreateTables();
        const struct {
            const char *plz, *ort, *strasse, *hausnummer;
        } rows[] = {
            { "64287", "Darmstadt", "Hauptstraße", "1" }, { "64287", "Darmstadt", "Hauptstraße", "3" },
            { "64287", "Darmstadt", "Schulstraße", "2" }, { "64289", "Darmstadt", "Lindenweg", "4" },
            { "64289", "Darmstadt", "Lindenweg", "6" },   { "60311", "Frankfurt am Main", "Hauptstraße", "7" },
        };
        for (const auto &r : rows)
            dispatch_AddOrt({ QString::fromUtf8(r.plz), QString::fromUtf8(r.ort), {}, QString::fromUtf8(r.strasse),
                              {}, {}, {}, {}, QString::fromUtf8(r.hausnummer) });
        m_frame = std::make_unique<TfrmPlzOrtStrasse>();
        m_frame->Loaded();
        m_frame->show();
        m_frame->activateWindow();
    }

    // The four fields in the order Plz, Ort, Strasse, Hausnummer.
    void fill(const QStringList &texts)
    {
        const TCEdit *edits[] = { frame().Plz, frame().Ort, frame().Strasse, frame().Hausnummer };
        for (int i = 0; i < 4; ++i)
            edits[i]->lineEdit()->setText(texts.value(i));
    }
    QStringList texts() const
    {
        return { frame().Plz->Text(), frame().Ort->Text(), frame().Strasse->Text(), frame().Hausnummer->Text() };
    }
    void enter(TCEdit *edit)
    {
        frame().setFocus(); // away from the edits, so that entering one is a focus change
        edit->setFocus();
        QApplication::processEvents();
    }

    // Made once the database is open, as a mask makes its frames.
    std::unique_ptr<TfrmPlzOrtStrasse> m_frame;
    TfrmPlzOrtStrasse &frame() const { return *m_frame; }
};

TEST_F(FrmPlzOrtStrasseTest, LoadedShowsTheHouseNumberAndSwitchesToHandlerLists)
{
    EXPECT_TRUE(frame().LookupActive());
    EXPECT_TRUE(frame().Hausnummer->isVisible());
    QStringList chain;
    for (QWidget *w = frame().Plz->lineEdit(); chain.size() < 4; w = w->nextInFocusChain())
        if (auto *edit = qobject_cast<TCEdit *>(w->parentWidget()); edit && qobject_cast<QLineEdit *>(w))
            chain << edit->objectName();
    EXPECT_EQ(chain, (QStringList{ u"Plz"_s, u"Ort"_s, u"Strasse"_s, u"Hausnummer"_s }));
}

TEST_F(FrmPlzOrtStrasseTest, GoldenEnteringAFieldFillsItsPickList)
{
    const struct {
        const char *name;
        TCEdit *TfrmPlzOrtStrasse::*edit;
        QStringList fields; // Plz, Ort, Strasse, Hausnummer
        QStringList list;
    } cases[] = {
        { "every postcode with the town empty", &TfrmPlzOrtStrasse::Plz, {},
          { {}, u"60311"_s, u"64287"_s, u"64289"_s } },
        { "the postcodes of the town", &TfrmPlzOrtStrasse::Plz, { {}, u"Darmstadt"_s },
          { {}, u"64287"_s, u"64289"_s } },
        { "the towns of the postcode", &TfrmPlzOrtStrasse::Ort, { u"60311"_s },
          { {}, u"Frankfurt am Main"_s } },
        { "the streets of town and postcode", &TfrmPlzOrtStrasse::Strasse, { u"64287"_s, u"Darmstadt"_s },
          { {}, u"Hauptstraße"_s, u"Schulstraße"_s } },
        { "house numbers by street and postcode", &TfrmPlzOrtStrasse::Hausnummer,
          { u"64287"_s, u"Frankfurt am Main"_s, u"Hauptstraße"_s },
          { {}, u"1"_s, u"3"_s } },
        { "house numbers: the town is no condition", &TfrmPlzOrtStrasse::Hausnummer,
          { {}, u"Darmstadt"_s, u"Hauptstraße"_s },
          { {}, u"1"_s, u"3"_s, u"7"_s } },
    };
    QStringList statements;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        fill(c.fields);
        kx::SqlTraceCapture trace;
        enter(frame().*c.edit);
        statements << trace.statements();
        EXPECT_EQ((frame().*c.edit)->PickList(), c.list);
    }
    kxtest::expectGoldenTrace(u"address-pick-lists"_s, statements);
}

TEST_F(FrmPlzOrtStrasseTest, GoldenChangingAFieldClearsTheFieldsThatNoLongerFit)
{
    const QStringList darmstadt{ u"64287"_s, u"Darmstadt"_s, u"Hauptstraße"_s, u"3"_s };
    enum Action { ChoosePlz, ChooseOrt, EmptyPlz, EmptyOrt };
    const struct {
        const char *name;
        QStringList before;
        Action action;
        QString value;
        QStringList after;
    } cases[] = {
        { "a postcode of another town clears town, street and number", darmstadt, ChoosePlz, u"60311"_s,
          { u"60311"_s, {}, {}, {} } },
        { "a postcode of the town whose first street is another", darmstadt, ChoosePlz, u"64289"_s,
          { u"64289"_s, u"Darmstadt"_s, {}, {} } },
        { "a postcode of the town and its first street", { {}, u"Darmstadt"_s, u"Lindenweg"_s, u"6"_s }, ChoosePlz,
          u"64289"_s, { u"64289"_s, u"Darmstadt"_s, u"Lindenweg"_s, u"6"_s } },
        { "a town whose first street is the street", { u"60311"_s, {}, u"Hauptstraße"_s, u"7"_s }, ChooseOrt,
          u"Frankfurt am Main"_s, { u"60311"_s, u"Frankfurt am Main"_s, u"Hauptstraße"_s, u"7"_s } },
        { "emptying the postcode", darmstadt, EmptyPlz, {}, { {}, {}, {}, {} } },
        { "emptying the town clears the postcode too", darmstadt, EmptyOrt, {}, { {}, {}, {}, {} } },
    };
    QStringList statements;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        fill(c.before);
        kx::SqlTraceCapture trace;
        TCEdit *edit = c.action == ChoosePlz || c.action == EmptyPlz ? frame().Plz : frame().Ort;
        if (c.action == ChoosePlz || c.action == ChooseOrt) {
            edit->Select(c.value); // as chosen from the drop-down list
        } else {
            edit->lineEdit()->selectAll();
            QTest::keyClick(edit->lineEdit(), Qt::Key_Delete);
        }
        EXPECT_EQ(texts(), c.after);
        statements << trace.statements();
    }
    kxtest::expectGoldenTrace(u"address-field-changes"_s, statements);
}

TEST_F(FrmPlzOrtStrasseTest, ChoosingTheEmptyEntryRefillsTheListWithoutConditions)
{
    fill({ u"64287"_s, u"Darmstadt"_s, u"Hauptstraße"_s });
    frame().Plz->Select(QString());
    EXPECT_EQ(texts(), (QStringList{ {}, {}, {}, {} }));
    EXPECT_EQ(frame().Plz->PickList().size(), 4) << "every postcode: no condition";

    fill({ u"64287"_s, u"Darmstadt"_s });
    frame().Ort->Select(QString());
    EXPECT_EQ(texts(), (QStringList{ {}, {}, {}, {} }));
    EXPECT_EQ(frame().Ort->PickList(), (QStringList{ {}, u"Darmstadt"_s, u"Frankfurt am Main"_s }));
}

// A quote typed into the postcode is looked up as the text it is: no error, no row, and the
// street that no longer fits is cleared as for any unknown postcode.
TEST_F(FrmPlzOrtStrasseTest, AQuoteIsLookedUpAsText)
{
    fill({ {}, {}, u"Hauptstraße"_s });
    kx::SqlTraceCapture trace;
    {
        kxtest::ScriptedMessages messages({});
        QTest::keyClick(frame().Plz->lineEdit(), '\'');
    }
    EXPECT_EQ(trace.statements(), (QStringList{ u"Select Ort from Orte Where plz=''''"_s,
                                                u"Select Strasse from Orte Where plz='''' and ort=''"_s }));
    EXPECT_EQ(texts(), (QStringList{ u"'"_s, {}, {}, {} }));
}

} // namespace
