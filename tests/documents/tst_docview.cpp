// SPDX-License-Identifier: LGPL-2.1-or-later
// The document lists on each product through their real widgets: the statements, the rows, the
// count over three parents, and opening the chosen document.
#include "docviewmatcommon.h"
#include "documentdata.h"
#include "recordinglauncher.h"
#include "scratchfiles.h"
#include "globals.h"
#include "sqlconnection.h"
#include "goldentrace.h"
#include "testdatabase.h"
#include "whenshown.h"

#include <QFile>
#include <QTest>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

class DocViewTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        setDocumentLauncher(std::make_unique<RecordingLauncher>(opened));
        cSearchPathList = { m_scratch.path() };
        kxtest::writeFile(m_scratch.filePath(u"Fahrzeugbrief.pdf"_s));
        documents_CreateTable(u"Fahrzeug_Dokumente"_s);
        documents_Add(u"Fahrzeug_Dokumente"_s, u"FZ-1"_s, u"Zulassung"_s, u"Zulassung.pdf"_s);
        documents_Add(u"Fahrzeug_Dokumente"_s, u"FZ-1"_s, u"Fahrzeugbrief"_s, u"Fahrzeugbrief.pdf"_s);
        documents_Add(u"Fahrzeug_Dokumente"_s, u"FZ-2"_s, u"Prüfbericht"_s, u"Pruefung.pdf"_s);
        documents_CreateTable(u"Mat_Dokumente"_s);
        for (const auto &[parent, name] : { std::pair{ u"A"_s, u"Datenblatt"_s }, { u"B"_s, u"Prüfzeugnis"_s },
                                            { u"C"_s, u"Rechnung"_s }, { QString(), u"Ohne Zuordnung 1"_s },
                                            { QString(), u"Ohne Zuordnung 2"_s } })
            documents_Add(u"Mat_Dokumente"_s, parent, name, name + u".pdf"_s);
    }
    void TearDown() override
    {
        setDocumentLauncher(nullptr);
        kxtest::DatabaseTest::TearDown();
    }
    static QStringList rows(const QTreeWidget *list)
    {
        QStringList result;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            result << list->topLevelItem(i)->text(0) + u" | "_s + list->topLevelItem(i)->text(1);
        return result;
    }
    QStringList opened;
};

TEST_F(DocViewTest, GoldenListsTheDocumentsOfARecordAndOfMaterial)
{
    const struct {
        const char *name;
        QString parent;
        QStringList rows;
    } cases[] = {
        { "by name", u"FZ-1"_s, { u"Fahrzeugbrief | Fahrzeugbrief.pdf"_s, u"Zulassung | Zulassung.pdf"_s } },
        { "a parent without documents", u"FZ-9"_s, {} },
    };
    kx::SqlTraceCapture trace;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        TDocViewCommonForm form;
        form.ShowCommonDokuments(u"Fahrzeug_Dokumente"_s, c.parent);
        EXPECT_EQ(rows(form.DocList), c.rows);
    }
    TDocViewMatCommonForm material;
    material.ShowCommonDokuments(u"A"_s, u"B"_s, u"X"_s);
    CheckCommonMatDokuments(u"A"_s, u"C"_s, u"X"_s);
    kxtest::expectGoldenTrace(u"documents-lists"_s, trace.statements());
}

TEST_F(DocViewTest, MaterialDocumentsOnThreeParents)
{
    TDocViewMatCommonForm form;
    form.ShowCommonDokuments(u"A"_s, u"B"_s, u"X"_s);
    EXPECT_EQ(rows(form.DocList), (QStringList{ u"Datenblatt | Datenblatt.pdf"_s, u"Prüfzeugnis | Prüfzeugnis.pdf"_s }));
    EXPECT_EQ(CheckCommonMatDokuments(u"A"_s, u"C"_s, u"X"_s), 2);
    // Deliberate: empty ids compare with the empty parent.
    EXPECT_EQ(CheckCommonMatDokuments({}, {}, {}), 2);
}

TEST_F(DocViewTest, OpeningTheChosenDocument)
{
    TDocViewCommonForm form;
    form.ShowCommonDokuments(u"Fahrzeug_Dokumente"_s, u"FZ-1"_s);
    form.show();
    form.DoOpen->trigger(); // nothing selected
    QTest::mouseDClick(form.DocList->viewport(), Qt::LeftButton, {}, QPoint(5, form.DocList->viewport()->height() - 3));
    EXPECT_TRUE(opened.isEmpty());

    const QRect first = form.DocList->visualItemRect(form.DocList->topLevelItem(0));
    QTest::mouseClick(form.DocList->viewport(), Qt::LeftButton, {}, first.center());
    QTest::mouseDClick(form.DocList->viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_EQ(opened, QStringList{ u"file "_s + m_scratch.filePath(u"Fahrzeugbrief.pdf"_s) });
    EXPECT_TRUE(form.isVisible()) << "the list stays open";
    QFile::remove(m_scratch.filePath(u"Fahrzeugbrief.pdf"_s)); // gone since the list was filled
    form.DoOpen->trigger();
    EXPECT_EQ(opened.size(), 1) << "nothing more opened, and no error";

    // The modal list of the free function, closed by its action.
    bool listed = false;
    kxtest::whenShown<TDocViewCommonForm>([&listed](TDocViewCommonForm *shown) {
        listed = shown->DocList->topLevelItemCount() == 1;
        shown->DoClose->trigger();
    });
    ShowCommonDokuments(u"Fahrzeug_Dokumente"_s, u"FZ-2"_s);
    EXPECT_TRUE(listed);
}

} // namespace
