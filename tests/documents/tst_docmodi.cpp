// SPDX-License-Identifier: LGPL-2.1-or-later
// The document editor on each product through its real widgets: opening plain and stored
// documents, the main-document rule, storing a file in the database, cloning, and scanning
// through SANE's test backend with the busy flag seen from a second connection.
#include "binarydata.h"
#include "docmodicommon.h"
#include "documentdata.h"
#include "recordinglauncher.h"
#include "scratchfiles.h"
#include "globals.h"
#include "inifile.h"
#include "kxerror.h"
#include "parameter.h"
#include "scanner.h"
#include "scriptedmessages.h"
#include "sqlconnection.h"
#include "systables.h"
#include "tcedit.h"
#include "goldentrace.h"
#include "testdatabase.h"
#include "log.h"
#include "whenshown.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QImage>
#include <QLineEdit>
#include <QTreeWidget>
#include <dlfcn.h>

using namespace Qt::StringLiterals;

namespace {

const QString table = u"Fahrzeug_Dokumente"_s;

class DocModiTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        alterOrCreateTable(systables::BinaryData(), compSqlConnection);
        documents_CreateTable(table);
        setDocumentLauncher(std::make_unique<RecordingLauncher>(opened));
        cSearchPathList = { m_scratch.path() };
        User.Name = u"Wehrführer"_s;
        kxtest::writeFile(m_scratch.filePath(u"Brief.pdf"_s), "Fahrzeugbrief");
    }
    void TearDown() override
    {
        setDocumentLauncher(nullptr);
        scannerFactory() = [] { return std::make_unique<TSaneScanner>(); };
        kxtest::DatabaseTest::TearDown();
    }
    void select(TDocModiCommonForm &form, int row) { form.DokumentList->setCurrentItem(form.DokumentList->topLevelItem(row)); }
    // Adds a row through the form, as the user does it.
    void post(TDocModiCommonForm &form, const QString &name, const QString &document, bool mainDocument = false)
    {
        form.AppendRecord();
        form.DocBezeichnung->setText(name);
        form.Dokumente->setText(document);
        form.MAINDOC->setChecked(mainDocument);
        form.PostRecord();
    }
    QStringList opened;
};

TEST_F(DocModiTest, OpeningPlainAndStoredDocuments)
{
    cEnableBinarySave = true;
    {
        TDocModiCommonForm form(table);
        form.LoadDocuments(u"FZ-1"_s);
        form.SetUseBinaryDatabase(true);
        post(form, u"Fahrzeugbrief"_s, m_scratch.filePath(u"Brief.pdf"_s));
        EXPECT_EQ(form.Row(0).Value(u"_Real_"_s), u"1"_s);
        EXPECT_EQ(form.Row(0).Value(u"DOKUMENT"_s), u"Brief.pdf"_s) << "the column keeps the file's name";
        EXPECT_EQ(form.DokumentList->topLevelItem(0)->text(2), u"Datenbank"_s);
    }
    QFile::remove(m_scratch.filePath(u"Brief.pdf"_s)); // only the database has it now
    const struct {
        const char *name;
        bool binary, enabled, selected;
        QStringList opened;
    } cases[] = {
        { "stored: extracted into the work folder and opened", true, true, true, { u"file "_s + m_scratch.filePath(u"Brief.pdf"_s) } },
        { "nothing selected", true, true, false, {} },
        { "binary saving switched off: the edit's path only", true, false, true, {} },
        { "binary storage off: the edit's path only", false, true, true, {} },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QFile::remove(m_scratch.filePath(u"Brief.pdf"_s));
        opened.clear();
        cEnableBinarySave = c.enabled;
        TDocModiCommonForm form(table);
        form.SetUseBinaryDatabase(c.binary);
        form.LoadDocuments(u"FZ-1"_s);
        if (c.selected)
            select(form, 0);
        form.ToolButton121Click();
        EXPECT_EQ(opened, c.opened) << "the edit holds \"Brief.pdf\", which is no longer on the search path";
        EXPECT_EQ(form.DokumentList->contextMenuPolicy() == Qt::ActionsContextMenu, c.binary);
    }
}

TEST_F(DocModiTest, OneMainDocumentPerRecord)
{
    TDocModiCommonForm form(table);
    form.LoadDocuments(u"FZ-1"_s);
    post(form, u"A"_s, u"a.pdf"_s, true);
    post(form, u"B"_s, u"b.pdf"_s);
    post(form, u"C"_s, u"/daten/O'Brien \"alt\".pdf"_s); // quotes in a path are saved as they are
    select(form, 2);
    form.MAINDOC->setChecked(true);
    form.DataAccess_DoclvBeforePost();
    EXPECT_EQ(form.Row(0).Value(u"MAINDOC"_s), u"0"_s);
    EXPECT_EQ(form.Row(0).Value(u"_Modi_"_s), u"1"_s) << "saved again";
    EXPECT_EQ(form.Row(1).Value(u"_Modi_"_s), u"0"_s);
    form.PostRecord();
    EXPECT_EQ(kxtest::rows(u"select BEZEICHNUNG, MAINDOC from Fahrzeug_Dokumente order by BEZEICHNUNG"_s),
              (QStringList{ u"A|0"_s, u"B|0"_s, u"C|1"_s }));
    EXPECT_EQ(kxtest::rows(u"select DOKUMENT from Fahrzeug_Dokumente where BEZEICHNUNG='C'"_s),
              QStringList{ u"/daten/O'Brien \"alt\".pdf"_s });

    // The record actions move through the list and, once confirmed, delete every document.
    for (const auto &[action, row] : { std::pair{ form.DoFirst, 0 }, { form.DoNext, 1 }, { form.DoLast, 2 }, { form.DoPrior, 1 } }) {
        action->trigger();
        EXPECT_EQ(form.SelectedRow(), row) << action->toolTip().toStdString();
        EXPECT_EQ(form.DocBezeichnung->Text(), form.Row(row).Value(u"BEZEICHNUNG"_s));
    }
    {
        kxtest::ScriptedMessages answers({ { u"Alle 3 Dokumente dieses Datensatzes löschen?"_s, mrNo },
                                           { u"Alle 3 Dokumente dieses Datensatzes löschen?"_s, mrYes } });
        form.DoDeleteAll->trigger();
        EXPECT_EQ(form.RowCount(), 3);
        form.DoDeleteAll->trigger();
    }
    EXPECT_EQ(form.RowCount(), 0);
    EXPECT_EQ(kxtest::rows(u"select count(*) from Fahrzeug_Dokumente"_s), QStringList{ u"0"_s });
}

// The record actions: open again drops unsaved changes only when the user agrees, save keeps
// them; the list goes to a file, the clipboard and a PDF for printing with the same rows.
TEST_F(DocModiTest, RecordActionsSaveOpenExportCopyAndPrint)
{
    TDocModiCommonForm form(table);
    form.LoadDocuments(u"FZ-1"_s);
    post(form, u"Brief; alt"_s, u"Brief.pdf"_s);
    form.AppendRecord();
    form.DocBezeichnung->setText(u"Entwurf"_s);
    form.Dokumente->setText(u"entwurf.pdf"_s);
    form.DataAccess_DoclvBeforePost(); // taken into the list, not saved
    {
        kxtest::ScriptedMessages answers({ { u"Die Änderungen an den Dokumenten dieses Datensatzes sind nicht "
                                             u"gespeichert. Verwerfen und neu laden?"_s,
                                             mrNo } });
        form.DoOpen->trigger();
    }
    EXPECT_EQ(form.RowCount(), 2) << "kept when the user says no";
    {
        kxtest::ScriptedMessages answers({ { u"Die Änderungen an den Dokumenten dieses Datensatzes sind nicht "
                                             u"gespeichert. Verwerfen und neu laden?"_s,
                                             mrYes } });
        form.DoOpen->trigger();
    }
    EXPECT_EQ(form.RowCount(), 1);
    post(form, u"Entwurf"_s, u"entwurf.pdf"_s);
    form.DoSave->trigger();
    form.DoOpen->trigger(); // nothing unsaved: no question
    ASSERT_EQ(form.RowCount(), 2);

    const QString expected = u"Bezeichnung;Dokument;Ablage\r\nBrief  alt;Brief.pdf;Datei\r\nEntwurf;entwurf.pdf;Datei\r\n"_s;
    const QString file = m_scratch.filePath(u"liste.csv"_s);
    form.ExportList(file);
    EXPECT_EQ(QString::fromUtf8(kxtest::readFile(file)), expected);
    form.DoCopy->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(),
              u"Bezeichnung\tDokument\tAblage\r\nBrief; alt\tBrief.pdf\tDatei\r\nEntwurf\tentwurf.pdf\tDatei\r\n"_s);
    form.DoPrint->trigger();
    ASSERT_EQ(opened.size(), 1);
    EXPECT_TRUE(opened[0].endsWith(u"Dokumente FZ-1.pdf"_s));
    EXPECT_TRUE(kxtest::readFile(opened[0].mid(5)).startsWith("%PDF"));
}

// Saving writes the changed rows only: a document nobody touched keeps who changed it last.
TEST_F(DocModiTest, SavingLeavesUntouchedRowsAsTheyWere)
{
    kxtest::exec(u"insert into Fahrzeug_Dokumente (ID, IDPARENT, BEZEICHNUNG, DOKUMENT, LUSER) values "
                 u"('ALT', 'FZ-1', 'Alt', 'alt.pdf', 'Altbenutzer')"_s);
    TDocModiCommonForm form(table);
    form.LoadDocuments(u"FZ-1"_s);
    post(form, u"Neu"_s, u"neu.pdf"_s);
    EXPECT_EQ(kxtest::rows(u"select BEZEICHNUNG, LUSER from Fahrzeug_Dokumente order by BEZEICHNUNG"_s),
              (QStringList{ u"Alt|Altbenutzer"_s, u"Neu|Wehrführer"_s }));
}

TEST_F(DocModiTest, GoldenCloningKeepsOrAddsTheChangeStamp)
{
    kxtest::exec(u"insert into Fahrzeug_Dokumente (ID, IDPARENT, BEZEICHNUNG, DOKUMENT, LDATE, LTIME, LUSER, MAINDOC) "
                 u"values ('d1', 'FZ-1', 'Alt', 'alt.pdf', '2020-05-04', '08:15:00', 'Kassenwart', 1)"_s);
    kxtest::exec(u"insert into Fahrzeug_Dokumente (ID, IDPARENT, BEZEICHNUNG, DOKUMENT) values ('d2', 'FZ-1', 'Neu', 'neu.pdf')"_s);
    TDocModiCommonForm form(table);
    form.LoadDocuments(u"FZ-1"_s);
    {
        kx::SqlTraceCapture trace;
        form.CloneDocuments(u"FZ-2"_s);
        kxtest::expectGoldenTrace(u"documents-clone"_s, kxtest::withoutClock(trace.statements()));
    }
    const QString today = QDate::currentDate().toString(u"dd.MM.yyyy"_s);
    EXPECT_EQ(kxtest::rows(u"select BEZEICHNUNG, LDATE, LTIME, LUSER, MAINDOC from Fahrzeug_Dokumente where IDPARENT='FZ-2' "
                           u"order by BEZEICHNUNG"_s),
              (QStringList{ u"Alt|04.05.2020|08:15:00|Kassenwart|1"_s,
                            u"Neu|"_s + today + u"|"_s + kxtest::rows(u"select LTIME from Fahrzeug_Dokumente where "
                                                                      u"IDPARENT='FZ-2' and BEZEICHNUNG='Neu'"_s)
                                                             .value(0)
                                + u"|Wehrführer|"_s }));
    EXPECT_EQ(kxtest::rows(u"select count(*) from Fahrzeug_Dokumente where IDPARENT='FZ-2' and ID in ('d1','d2')"_s),
              QStringList{ u"0"_s }) << "new keys";

    // Quotes in a value are copied as the text they are, also one built to change the statement.
    kxtest::exec(u"update Fahrzeug_Dokumente set BEZEICHNUNG='Zeugnis ''A''' where ID='d2'"_s);
    kxtest::exec(u"update Fahrzeug_Dokumente set BEZEICHNUNG='x'', (select max(ID) from Fahrzeug_Dokumente)) --' where ID='d1'"_s);
    form.LoadDocuments(u"FZ-1"_s);
    form.CloneDocuments(u"FZ-3"_s);
    EXPECT_EQ(kxtest::rows(u"select BEZEICHNUNG from Fahrzeug_Dokumente where IDPARENT='FZ-3' order by BEZEICHNUNG"_s),
              (QStringList{ u"Zeugnis 'A'"_s, u"x', (select max(ID) from Fahrzeug_Dokumente)) --"_s }));
}

TEST_F(DocModiTest, StoredDocumentSavedToAFolder)
{
    cEnableBinarySave = true;
    TDocModiCommonForm form(table);
    form.SetUseBinaryDatabase(true);
    form.LoadDocuments(u"FZ-1"_s);
    post(form, u"Fahrzeugbrief"_s, m_scratch.filePath(u"Brief.pdf"_s));
    const QString folder = m_scratch.filePath(u"Ablage"_s);
    QDir().mkpath(folder);
    kxtest::whenShown<QFileDialog>([folder](QFileDialog *dialog) {
        dialog->setDirectory(folder);
        static_cast<QDialog *>(dialog)->accept();
    });
    kxtest::ScriptedMessages messages({ { u"Datei wurde gespeichert."_s } });
    form.Dokumentspeichern1Click();
    EXPECT_EQ(kxtest::readFile(folder + u"/Brief.pdf"_s), QByteArray("Fahrzeugbrief"));

    // A copy for another record carries the stored content with it.
    form.LoadDocuments(u"FZ-1"_s);
    form.CloneDocuments(u"FZ-9"_s);
    const QString copy = kxtest::rows(u"select ID from Fahrzeug_Dokumente where IDPARENT='FZ-9'"_s).value(0);
    QDir().mkpath(m_scratch.filePath(u"Kopie"_s));
    const QString extracted = ExtractBinaryData(copy, u"Fahrzeug_Dokumente"_s, u"Dokument"_s, m_scratch.filePath(u"Kopie"_s));
    EXPECT_EQ(kxtest::readFile(extracted), QByteArray("Fahrzeugbrief"));
}

// The real scanner, watched: the busy flag as a second workstation reads it while the page is taken.
class WatchedScanner : public TSaneScanner
{
public:
    explicit WatchedScanner(std::function<void()> whileScanning)
        : m_whileScanning(std::move(whileScanning))
    {
    }
    QByteArray AcquireJpg(int quality) override
    {
        m_whileScanning();
        return TSaneScanner::AcquireJpg(quality);
    }

private:
    std::function<void()> m_whileScanning;
};

TEST_F(DocModiTest, ScanningThroughSane)
{
    // SANE's test backend only, through a configuration of the test's own. Kept loaded after SANE
    // unloads it, so that the leak checker can name the backend's own buffers (suppressed as
    // libsane's) instead of reporting them from an unknown module.
    dlopen("/usr/lib/x86_64-linux-gnu/sane/libsane-test.so.1", RTLD_NOW | RTLD_NODELETE);
    const QString sane = m_scratch.filePath(u"sane.d"_s);
    kxtest::writeFile(sane + u"/dll.conf"_s, "test\n");
    qputenv("SANE_CONFIG_DIR", QFile::encodeName(sane));
    cDatabaseIni = m_scratch.filePath(u"db.ini"_s);
    TCParameter().Write(u"Settings\\Dokuments"_s, u"OnlyUseSearchPath"_s, u"0"_s);

    TCSqlConnection workstation; // another workstation sharing the settings store
    workstation.Open(m_connectionString);
    const auto flag = [&workstation] {
        const kx::SqlResult r = workstation.execute(
            u"select PVALUE from SYSPARAMETER where SECTIONNAME='Scanner' and KEYNAME='isScanning'"_s);
        return r.rows.empty() ? QString() : r.rows.front().value(0).toString();
    };
    QString flagWhileScanning;
    scannerFactory() = [&] { return std::make_unique<WatchedScanner>([&] { flagWhileScanning = flag(); }); };
    const kxtest::ScriptedMessages::Step noScanner{ u"Bitte stellen Sie unter System\\Einstellungen\\System einen Scanner ein."_s };

    enum Dialog { Save, Cancel, None };
    const struct {
        const char *name;
        QString scanner; // empty: none configured
        QString flagBefore;
        QList<kxtest::ScriptedMessages::Step> messages;
        Dialog dialog;
        QString flagAfter;
        bool page;
    } cases[] = {
        { "no scanner configured", {}, {}, { noScanner }, None, {}, false },
        { "the scanner is not there", u"test:9"_s, u"0"_s, { noScanner }, None, u"0"_s, false },
        { "busy on another workstation", u"test:0"_s, u"1"_s,
          { { u"Scanner ist wird bereits benutzt!\rScannen im Moment nicht möglich."_s } }, None, u"1"_s, false },
        { "save dialog cancelled: the page is discarded", u"test:0"_s, u"0"_s, {}, Cancel, u"0"_s, false },
        { "a page saved as JPEG", u"test:0"_s, u"0"_s, {}, Save, u"0"_s, true },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        TCIniFile(cDatabaseIni).WriteString(u"System"_s, u"Scanner"_s, c.scanner.isEmpty() ? u"-1"_s : c.scanner);
        if (!c.flagBefore.isEmpty())
            workstation.execute(u"update SYSPARAMETER set PVALUE='"_s + c.flagBefore
                                + u"' where SECTIONNAME='Scanner' and KEYNAME='isScanning'"_s);
        flagWhileScanning.clear();
        TDocModiCommonForm form(table);
        form.Dokumente->setText(u"vorher.pdf"_s);
        const QString target = m_scratch.filePath(u"Seite 1"_s);
        if (c.dialog != None)
            kxtest::whenShown<QFileDialog>([&c, target](QFileDialog *dialog) {
                if (c.dialog == Cancel) {
                    dialog->reject();
                    return;
                }
                dialog->findChild<QLineEdit *>(u"fileNameEdit"_s)->setText(target);
                static_cast<QDialog *>(dialog)->accept();
            });
        {
            kxtest::ScriptedMessages messages(c.messages);
            form.ToolButton3Click();
        }
        EXPECT_TRUE(c.dialog == None || flagWhileScanning == u"1"_s) << "busy while the page is taken";
        EXPECT_EQ(flag(), c.flagAfter);
        const QString page = target + u".jpg"_s;
        EXPECT_EQ(QFile::exists(page), c.page);
        if (c.page) {
            EXPECT_TRUE(kxtest::readFile(page).startsWith("\xFF\xD8")) << "a JPEG file";
            EXPECT_EQ(QImage(page).size(), QSize(472, 590)) << "the test page at 150 dpi";
            EXPECT_EQ(form.Dokumente->Text(), target + u".jpg"_s);
        } else {
            EXPECT_EQ(form.Dokumente->Text(), u"vorher.pdf"_s);
        }
    }
    EXPECT_FALSE(QFile::exists(errorLogFilePath())) << "no scan failed";
}

} // namespace
