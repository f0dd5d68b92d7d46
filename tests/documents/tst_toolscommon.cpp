// SPDX-License-Identifier: LGPL-2.1-or-later
// Launching documents and links, the hand-off to the main window, and the merge into templates,
// on each product: the decisions through a recording launcher, the merge through a recording
// word processor and through real .docx files.
#include "recordinglauncher.h"
#include "scratchfiles.h"
#include "globals.h"
#include "kxerror.h"
#include "ooxmlword.h"
#include "sqlconnection.h"
#include "systables.h"
#include "goldentrace.h"
#include "testdatabase.h"
#include "toolscommon.h"
#include "wordtemplate.h"

#include <QDir>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QFile>
#include <QWidget>

using namespace Qt::StringLiterals;

namespace {

// The main program's window: reads "Open.Def" when the open-record event arrives.
class MainWindow : public QWidget
{
public:
    MainWindow() { setObjectName(u"MarvexMainForm"_s); }
    QString request;

protected:
    bool event(QEvent *e) override
    {
        if (e->type() != TOpenRecordEvent::EventType)
            return QWidget::event(e);
        request = QString::fromUtf8(kxtest::readFile(QDir(cWorkPath).filePath(u"Open.Def"_s)));
        return true;
    }
};

// Records the object model calls of a merge; its documents have the form fields given.
class RecordingWord : public TWordApplication, public TWordDocument
{
public:
    RecordingWord(QStringList &calls, QStringList fields)
        : m_calls(calls)
        , m_fields(std::move(fields))
    {
    }
    QString CannotFill(const QString &) const override { return {}; }
    void SetVisible(bool visible) override { m_calls << u"Visible=%1"_s.arg(visible); }
    void DocumentsAdd(const QString &templateFile) override { m_calls << u"Add "_s + QFileInfo(templateFile).fileName(); }
    TWordDocument *ActiveDocument() override { return this; }
    void Release() override { m_calls << u"Release"_s; }
    int FormFieldsCount() const override { return int(m_fields.size()); }
    QString FormFieldName(int item) const override { return m_fields.at(item - 1); }
    void SetFormFieldResult(int item, const QString &result) override
    {
        m_calls << u"%1=%2"_s.arg(m_fields.at(item - 1), result);
    }

private:
    QStringList &m_calls;
    QStringList m_fields;
};

class ToolsCommonTest : public kxtest::DatabaseTest
{
protected:
    void prepare() override
    {
        docs = m_scratch.filePath(u"docs"_s);
        QDir().mkpath(docs);
        cSearchPathList = { m_scratch.filePath(u"leer"_s), docs };
        launch(launchSucceeded);
    }
    void TearDown() override
    {
        setDocumentLauncher(nullptr);
        wordApplicationFactory() = [] { return std::make_unique<TOoxmlWordApplication>(); };
        kxtest::DatabaseTest::TearDown();
    }
    void launch(int code) { setDocumentLauncher(std::make_unique<RecordingLauncher>(calls, code)); }

    QString docs;
    QStringList calls;
};

TEST_F(ToolsCommonTest, LaunchDecisionsAndTheirErrors)
{
    kxtest::writeFile(docs + u"/Bericht.pdf"_s);
    kxtest::writeFile(docs + u"/O'Brien \"alt\".pdf"_s);
    kxtest::writeFile(docs + u"/Lage.LDMV.bak"_s);
    const QString notFound = u"Datei wurde nicht gefunden."_s;
    const struct {
        const char *name;
        QString file;
        int code; // what the launcher answers
        QStringList calls;
        QString error; // with ShowError
    } cases[] = {
        { "a link without its scheme is a file name", u"www.feuerwehr-musterstadt.de"_s, launchSucceeded, {}, notFound },
        { "a file found on the search path", u"Bericht.pdf"_s, launchSucceeded, { u"file "_s + docs + u"/Bericht.pdf"_s }, {} },
        { "its launch is never reported", u"Bericht.pdf"_s, 31, { u"file "_s + docs + u"/Bericht.pdf"_s }, {} },
        { "quotes in the name", u"O'Brien \"alt\".pdf"_s, launchSucceeded, { u"file "_s + docs + u"/O'Brien \"alt\".pdf"_s }, {} },
        { "ftp: anywhere in the name, any case", u"Plan siehe fTp://server/plan.pdf"_s, launchSucceeded,
          { u"link Plan siehe fTp://server/plan.pdf"_s }, {} },
        { "a link's failure with its text", u"http://intranet/x"_s, 31, { u"link http://intranet/x"_s },
          ShellExecuteErrorText(31) },
        { "mail before the search path", u"MAILTO:wehrfuehrer@example.org"_s, 2, { u"link MAILTO:wehrfuehrer@example.org"_s },
          notFound },
        { "a missing situation-map file", u"fehlt.ldmv"_s, launchSucceeded, {}, notFound },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        launch(c.code);
        calls.clear();
        EXPECT_EQ(kxtest::raised([&] { ShellExecuteAndSearchDokument(c.file, false); }), QString());
        EXPECT_EQ(calls, c.calls);
        EXPECT_EQ(kxtest::raised([&] { ShellExecuteAndSearchDokument(c.file, true); }), c.error);
    }

    EXPECT_EQ(ShellExecuteErrorText(99), u"Unbekannter Fehler (Fehlercode: 99)"_s);
}

TEST_F(ToolsCommonTest, SituationMapFilesGoToTheMainWindow)
{
    const QString map = docs + u"/Lage.LDMV.bak"_s; // a backup copy: ".LDMV" before a further extension
    kxtest::writeFile(map);
    const QString request = QDir(cWorkPath).filePath(u"Open.Def"_s);
    ShellExecuteAndSearchDokument(map, true); // no main window: nothing happens, silently
    EXPECT_FALSE(QFile::exists(request));

    MainWindow window;
    ShellExecuteAndSearchDokument(map, true);
    EXPECT_EQ(window.request, u"10010\n[LKFILE]"_s + map + u"\n"_s) << "read while the event was handled";
    EXPECT_TRUE(calls.isEmpty());
}

TEST_F(ToolsCommonTest, GoldenMergeDrivesTheWordProcessorPerRecord)
{
    alterOrCreateTable(systables::OfficeTableMapping(), compSqlConnection);
    kxtest::exec(u"create table PERSONEN (ID varchar(10), NAME varchar(40), ORT varchar(40))"_s);
    kxtest::exec(u"insert into PERSONEN (ID, NAME, ORT) values ('1', 'Müller & Söhne <GmbH>', 'Groß-Umstadt')"_s);
    kxtest::exec(u"insert into PERSONEN (ID, NAME, ORT) values ('2', 'Schäfer', 'Dieburg')"_s);
    kxtest::exec(u"insert into OfficeTableMapping (ID, TABLENAME, FIELDNAME, OFFICENAME) values ('a', 'PERSONEN', 'NAME', 'Name1')"_s);
    kxtest::exec(u"insert into OfficeTableMapping (ID, TABLENAME, FIELDNAME, OFFICENAME) values ('b', 'PERSONEN', 'ORT', 'ORT1')"_s);
    const QString sql = u"select NAME, ORT from PERSONEN order by ID"_s;
    for (const char *name : { "Brief.DOTX", "Brief.docm", "Brief.dot", "Protokoll.pdf" })
        kxtest::writeFile(docs + u'/' + QString::fromLatin1(name));

    const struct {
        const char *name;
        QString file, sql;
        QStringList calls;
    } cases[] = {
        { "a template per record", u"Brief.DOTX"_s, sql,
          { u"Visible=1"_s, u"Add Brief.DOTX"_s, u"Name1=Müller & Söhne <GmbH>"_s, u"Ort1=Groß-Umstadt"_s, u"Visible=1"_s,
            u"Add Brief.DOTX"_s, u"Name1=Schäfer"_s, u"Ort1=Dieburg"_s, u"Release"_s } },
        { "no records, no document", u"Brief.docm"_s, u"select NAME, ORT from PERSONEN where 1=2"_s, { u"Release"_s } },
        { "a template not on the search path", u"Fehlt.dotx"_s, sql, {} },
        { "not a template: opened", u"Protokoll.pdf"_s, sql, { u"file "_s + docs + u"/Protokoll.pdf"_s } },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        calls.clear();
        wordApplicationFactory() = [this] { return std::make_unique<RecordingWord>(calls, QStringList{ u"Name1"_s, u"Ort1"_s }); };
        kx::SqlTraceCapture trace;
        ShellExecuteAndSearchDokument(c.file, u"personen"_s, c.sql);
        EXPECT_EQ(calls, c.calls);
        if (&c == cases)
            kxtest::expectGoldenTrace(u"documents-merge"_s, trace.statements());
    }

    // The real word processor: two documents from a real template, their fields holding the values.
    wordApplicationFactory() = [] { return std::make_unique<TOoxmlWordApplication>(); };
    writeTemplate(docs + u"/Brief.dotx"_s, "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml");
    calls.clear();
    ShellExecuteAndSearchDokument(u"Brief.dotx"_s, u"PERSONEN"_s, sql);
    const QString first = QDir(cWorkPath).filePath(u"Brief-1.docx"_s), second = QDir(cWorkPath).filePath(u"Brief-2.docx"_s);
    EXPECT_EQ(calls, (QStringList{ u"file "_s + first, u"file "_s + second }));
    using Fields = QList<std::pair<QString, QString>>;
    EXPECT_EQ(ooxmlFormFields(first), (Fields{ { u"Name1"_s, u"Müller & Söhne <GmbH>"_s }, { u"Ort1"_s, u"Groß-Umstadt"_s } }));
    EXPECT_EQ(ooxmlFormFields(second), (Fields{ { u"Name1"_s, u"Schäfer"_s }, { u"Ort1"_s, u"Dieburg"_s } }));
    EXPECT_TRUE(zipEntry(first, u"[Content_Types].xml"_s).contains("wordprocessingml.document.main+xml"));
    EXPECT_TRUE(zipEntry(first, u"word/document.xml"_s).contains("Sehr geehrte(r) </w:t>"));

    // Templates that cannot be filled: one clear log line each, no document, nothing half-written.
    kxtest::writeFile(docs + u"/Kaputt.dotx"_s, "kein Zip-Archiv");
    writeZip(docs + u"/Leer.docx"_s, { { u"[Content_Types].xml"_s, "<Types/>" } });
    // 65 MiB of blanks in 65 KiB: a part that inflates past the limit
    writeZip(docs + u"/Riesig.docx"_s, { { u"word/document.xml"_s, QByteArray(65 << 20, ' ') } });
    const struct {
        QString file, logged;
    } refused[] = {
        { u"Brief.dot"_s, u"eine binäre Word-Datei, die hier nicht gefüllt werden kann"_s },
        { u"Kaputt.dotx"_s, u"kein Office-Open-XML-Dokument (kein Zip-Archiv)"_s },
        { u"Leer.docx"_s, u"dem Archiv fehlt der Dokumentteil word/document.xml"_s },
        { u"Riesig.docx"_s, u"der Teil word/document.xml ist entpackt größer als 64 MiB"_s },
    };
    const QStringList before = QDir(cWorkPath).entryList(QDir::Files);
    for (const auto &r : refused) {
        SCOPED_TRACE(r.file.toStdString());
        calls.clear();
        ShellExecuteAndSearchDokument(r.file, u"PERSONEN"_s, sql);
        EXPECT_TRUE(calls.isEmpty());
        const QString lines = QString::fromUtf8(kxtest::readFile(QDir(cWorkPath).filePath(u"kxcommon.log"_s)));
        EXPECT_TRUE(lines.contains(u"Seriendruck: die Vorlage "_s + docs + u'/' + r.file + u" wird nicht gefüllt: "_s + r.logged))
            << lines.toStdString();
    }
    QStringList after = QDir(cWorkPath).entryList(QDir::Files);
    after.removeAll(u"kxcommon.log"_s);
    QStringList expected = before;
    expected.removeAll(u"kxcommon.log"_s);
    EXPECT_EQ(after, expected);
}

// The parts of a legacy form field may share runs in any arrangement a word processor saves; the
// result keeps the formatting of the run it is written in, and its line breaks and tabs.
TEST_F(ToolsCommonTest, FormFieldsInEveryArrangementOfRuns)
{
    const QByteArray begin = R"(<w:fldChar w:fldCharType="begin"><w:ffData><w:name w:val="%1"/></w:ffData></w:fldChar>)";
    const QByteArray instruction = R"(<w:instrText xml:space="preserve"> FORMTEXT </w:instrText>)";
    const QByteArray separate = R"(<w:fldChar w:fldCharType="separate"/>)", end = R"(<w:fldChar w:fldCharType="end"/>)";
    const QByteArray bold = "<w:rPr><w:b/></w:rPr>";
    const auto run = [](const QByteArray &content) -> QByteArray { return "<w:r>" + content + "</w:r>"; };
    const struct {
        const char *name;
        QByteArray field;
    } cases[] = {
        { "each in a run of its own", run(begin) + run(instruction) + run(separate) + run(bold + "<w:t>alt</w:t>") + run(end) },
        { "separator and end in one run", run(begin) + run(instruction) + run(bold + separate + "<w:t>alt</w:t>" + end) },
        { "no shown text", run(begin) + run(instruction) + run(bold + separate + end) },
        { "all in one run", run(bold + begin + instruction + separate + "<w:t>alt</w:t>" + end) },
        { "the old text over two runs with a break", run(begin + instruction + separate)
              + run(bold + "<w:t>alte</w:t><w:br/>") + run("<w:t>Zeile</w:t><w:tab/>") + run(end) },
    };
    const QString value = u"Zeile 1\vZeile 2\tEnde & <Schluss>"_s;
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        const QString file = docs + u"/Anordnung.dotx"_s;
        QFile::remove(file);
        writeTemplate(file, "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml", c.field);
        TOoxmlWordApplication word;
        word.DocumentsAdd(file);
        ASSERT_EQ(word.ActiveDocument()->FormFieldsCount(), 2);
        word.ActiveDocument()->SetFormFieldResult(1, value);
        word.ActiveDocument()->SetFormFieldResult(2, u"Dieburg"_s);
        const QString made = word.Documents().value(0);
        word.Release();
        EXPECT_EQ(ooxmlFormFields(made),
                  (QList<std::pair<QString, QString>>{ { u"Name1"_s, value }, { u"Ort1"_s, u"Dieburg"_s } }));
        // The new text stands in the bold run, before that run ends.
        static const QRegularExpression inBoldRun(u"<w:b/></w:rPr>(?:(?!</w:r>).)*Zeile 1"_s,
                                                  QRegularExpression::DotMatchesEverythingOption);
        EXPECT_TRUE(inBoldRun.match(QString::fromUtf8(zipEntry(made, u"word/document.xml"_s))).hasMatch());
        QFile::remove(made);
    }
}

// Found by fuzzing: parts whose filled copy was not well-formed. The new result's elements take
// the prefix the word-processing namespace has where they are written, which may differ from the
// one last declared.
TEST(OoxmlFormFields, FilledPartsStayWellFormed)
{
    const QByteArray ns = "http://schemas.openxmlformats.org/wordprocessingml/2006/main";
    const QByteArray field = QByteArray(standardFormField).replace("%1", "Name1");
    const struct {
        const char *name;
        QByteArray part;
    } cases[] = {
        { "without a declaration", "<w:document xmlns:w=\"" + ns + "\"><w:body><w:p>" + field + "</w:p></w:body></w:document>" },
        { "a second prefix declared in a sibling that ended before the field",
          "<w:document xmlns:w=\"" + ns + "\"><w:body><x:p xmlns:x=\"" + ns + "\"/><w:p>" + field + "</w:p></w:body></w:document>" },
        { "a prefix that is no name, which the reader takes in a declaration only",
          "<w:document xmlns:w=\"" + ns + "\"><w:body><w:p xmlns:7=\"" + ns + "\">" + field + "</w:p></w:body></w:document>" },
        { "the namespace as the default", "<document xmlns:w=\"" + ns + "\" xmlns=\"" + ns + "\"><body><p>"
              + QByteArray(field).replace("<w:", "<").replace("</w:", "</") + "</p></body></document>" },
        { "the prefix declared on the field's end itself",
          "<w:document xmlns:w=\"" + ns + "\"><w:body><w:p><w:r><w:fldChar w:fldCharType=\"begin\"><w:ffData><w:name w:val=\"Name1\"/>"
              "</w:ffData></w:fldChar></w:r><w:r><w:fldChar w:fldCharType=\"separate\"/></w:r><v:r xmlns:v=\"urn:other\">"
              "<e:fldChar xmlns:e=\"" + ns + "\" e:fldCharType=\"end\"/></v:r></w:p></w:body></w:document>" },
        { "the prefix bound to another namespace around the field",
          "<w:document xmlns:w=\"" + ns + "\"><w:body><w:p><x:r xmlns:x=\"" + ns + "\"><o:s xmlns:o=\"urn:o\" xmlns:x=\"urn:other\">"
              "<w:fldChar w:fldCharType=\"begin\"><w:ffData><w:name w:val=\"Name1\"/></w:ffData></w:fldChar>"
              "<w:fldChar w:fldCharType=\"separate\"/><w:fldChar w:fldCharType=\"end\"/></o:s></x:r></w:p></w:body></w:document>" },
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.name);
        QStringList names, shown;
        const QByteArray filled = ooxmlFillFormFields(c.part, { { 0, u"Müller\tA"_s } }, &names, &shown);
        QXmlStreamReader check(filled);
        while (!check.atEnd())
            check.readNext();
        EXPECT_FALSE(check.hasError()) << check.errorString().toStdString() << "\n" << filled.toStdString();
        EXPECT_EQ(shown, QStringList{ u"Müller\tA"_s });
        QStringList againNames, againShown;
        ooxmlFillFormFields(filled, {}, &againNames, &againShown);
        EXPECT_EQ(againShown, shown);
    }
}

} // namespace
