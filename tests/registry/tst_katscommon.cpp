// SPDX-License-Identifier: LGPL-2.1-or-later
// The category registry on each product: registering a module, and the category dialog driven
// by mouse and keyboard while it is shown modally.
#include "dataaccess.h"
#include "katscommon.h"
#include "katscommonform.h"
#include "katsdata.h"
#include "kxerror.h"
#include "modulcommon.h"
#include "systables.h"
#include "tcdbtreeview.h"
#include "goldentrace.h"
#include "testdatabase.h"

#include <QStyle>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using kxtest::rows;

namespace {

const QString module = u"Fahrzeuge"_s;

class KatsCommonTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        alterOrCreateTable(systables::SysDef_DataLink(), compSqlConnection);
        mdef_CreateData();
        Kats_CreateData();
        Kats_AddSampleTree();
        Kats_AddModul(module, 7010, u"Fahrzeug"_s, u"Fahrzeug_Kats"_s, u"KENNZEICHEN,TYP"_s);
    }

    static QStringList stored(const QString &record)
    {
        return rows(u"select TREEID, TREECHECKSTATE from FAHRZEUG_KATS where IDPARENT='"_s + record
                    + u"' order by TREEID"_s);
    }
};

QModelIndex node(TCDBTreeView *view, const QString &caption)
{
    const QModelIndexList found = view->model()->match(view->treeModel()->rootIndex(), Qt::DisplayRole, caption, 1,
                                                       Qt::MatchExactly | Qt::MatchRecursive);
    EXPECT_EQ(found.size(), 1) << caption.toStdString();
    return found.value(0);
}

// Clicks the check box of the node with that caption.
void clickCheckBox(TCDBTreeView *view, const QString &caption)
{
    QStyleOptionViewItem option;
    option.initFrom(view);
    option.rect = view->visualRect(node(view, caption));
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    const QRect box = view->style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, view);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, box.center());
}

// Makes the node current and presses the space bar.
void pressSpace(TCDBTreeView *view, const QString &caption)
{
    view->setCurrentIndex(node(view, caption));
    QTest::keyClick(view, Qt::Key_Space);
}

// Runs Work while the form is shown modally, notes the tree as shown, then closes it.
QString whileShown(TKatsCommonForm *form, const QString &id, const std::function<void()> &work = {})
{
    QString shown;
    QTimer::singleShot(0, form, [&] {
        EXPECT_TRUE(form->isVisible());
        if (work)
            work();
        shown = form->KatsTree->stateText();
        form->DoClose->trigger();
    });
    Kats_ShowKats(form, id);
    return shown;
}

const QString ticked = uR"(Kats-Plan
  [-] Fahrzeuge
    [x] Löschfahrzeuge
    [ ] Hubrettungsfahrzeuge
    [ ] Rüst- und Gerätewagen
  [-] Geräte
    [-] Atemschutz
      [x] Pressluftatmer
      [ ] Chemikalienschutzanzüge
    [x] Schläuche und Armaturen
    [ ] Pumpen und Aggregate
  [x] Einsatzarten
    [x] Brandeinsatz
    [x] Technische Hilfeleistung
    [x] Gefahrstoffeinsatz
)"_s;

TEST_F(KatsCommonTest, GoldenAddModulEntersTheModuleEachTime)
{
    kx::SqlTraceCapture trace;
    Kats_AddModul(module, 7010, u"Fahrzeug"_s, u"fahrzeug_kats"_s, u"KENNZEICHEN,TYP"_s);
    kxtest::expectGoldenTrace(u"registry-categories"_s, trace.statements());
    EXPECT_EQ(rows(u"select ModulNr, ModulMainTable, ModulKatsTable from SYSDef_Kats"_s),
              (QStringList{ u"7010|FAHRZEUG|FAHRZEUG_KATS"_s, u"7010|FAHRZEUG|FAHRZEUG_KATS"_s }));
    EXPECT_EQ(rows(u"select MODULTABLENAME, MODULISMAINTABLE from SYSDef_Module"_s),
              (QStringList{ u"FAHRZEUG_KATS|0"_s, u"FAHRZEUG_KATS|0"_s }));
    EXPECT_EQ(rows(u"select TABLENAME, FIELDNAME, LINKTABLENAME, LINKFIELDNAME from SysDef_DataLink order by TABLENAME"_s),
              (QStringList{ u"FAHRZEUG|ID|FAHRZEUG_KATS|IDPARENT"_s, u"FAHRZEUG|ID|FAHRZEUG_KATS|IDPARENT"_s,
                            u"KATS|TREEID|FAHRZEUG_KATS|TREEID"_s, u"KATS|TREEID|FAHRZEUG_KATS|TREEID"_s }));

    // Quotes in the module name and the fields are stored as the texts they are.
    Kats_AddModul(u"Wehr's"_s, 7020, u"Personal"_s, u"Personal_Kats"_s, u"NAME,O'NAME"_s);
    EXPECT_EQ(rows(u"select ModulName, ModulFields from SYSDef_Kats where ModulNr=7020"_s),
              QStringList{ u"Wehr's|NAME,O'NAME"_s });
    EXPECT_TRUE(compSqlConnection->tableExists(u"Personal_Kats"_s));
    qDeleteAll(applicationOwner()->findChildren<TKatsCommonData *>(Qt::FindDirectChildrenOnly));
}

TEST_F(KatsCommonTest, TicksByMouseAndKeyboardAreSavedForTheirRecord)
{
    TKatsCommonForm *form = Kats_Init(module);
    {
        kx::SqlTraceCapture trace;
        Kats_SaveKats(form, u"R1"_s); // nothing loaded yet: nothing written
        EXPECT_TRUE(trace.statements().isEmpty());
    }
    const QString shown = whileShown(form, u"R1"_s, [form] {
        TCDBTreeView *tree = form->KatsTree;
        clickCheckBox(tree, u"Löschfahrzeuge"_s);
        pressSpace(tree, u"Pressluftatmer"_s);
        clickCheckBox(tree, u"Schläuche und Armaturen"_s);
        clickCheckBox(tree, u"Einsatzarten"_s); // checks everything below
        clickCheckBox(tree, u"Hubrettungsfahrzeuge"_s);
        pressSpace(tree, u"Hubrettungsfahrzeuge"_s); // and off again
    });
    EXPECT_EQ(shown, ticked);
    Kats_SaveKats(form, u"R1"_s);
    EXPECT_EQ(stored(u"R1"_s), (QStringList{ u"EA|2"_s, u"EA-B|2"_s, u"EA-GSG|2"_s, u"EA-TH|2"_s, u"FZ-LF|2"_s,
                                             u"GE-AS-PA|2"_s, u"GE-SL|2"_s }));

    // Another record without a reset still shows the first record's ticks.
    EXPECT_EQ(whileShown(form, u"R2"_s), ticked);
    Kats_ResetKats(form);
    EXPECT_EQ(whileShown(form, u"R2"_s), QString(ticked).replace(u"[x]"_s, u"[ ]"_s).replace(u"[-]"_s, u"[ ]"_s));
    Kats_DeInit(form);

    // A new dialog loads the saved ticks and shows the parents grayed again.
    form = Kats_Init(module);
    EXPECT_EQ(whileShown(form, u"R1"_s), ticked);
    Kats_DeInit(form);
    EXPECT_EQ(Kats_ReadCheckState(u"R1"_s, module).text(u"Kats-Plan"_s), ticked);
    EXPECT_THROW(Kats_ReadCheckState(u"R1"_s, u"Unbekannt"_s), kx::Error);
}

} // namespace
