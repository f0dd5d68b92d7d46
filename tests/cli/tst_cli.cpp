// SPDX-License-Identifier: LGPL-2.1-or-later
// The command line as scripts use it: exit codes, text and JSON output, on each product.
#include "scratchfiles.h"
#include "testdatabase.h"
#include "wordtemplate.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct CliRun
{
    int exitCode;
    QString out;
    QString err;
};

class CliTest : public kxtest::DatabaseTest
{
protected:
    CliRun invoke(QStringList args, bool withDatabase = true)
    {
        if (withDatabase)
            args = QStringList{ u"--db"_s, m_connectionString } + args;
        return invoke(args, QProcessEnvironment::systemEnvironment());
    }
    CliRun invoke(const QStringList &args, const QProcessEnvironment &environment, const QString &folder = {})
    {
        QProcess process;
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(folder.isEmpty() ? m_scratch.path() : folder); // documents are made there
        process.start(QString::fromUtf8(KX_CLI_PROGRAM), args);
        process.waitForFinished(60000);
        return { process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
                 QString::fromUtf8(process.readAllStandardError()) };
    }
};

// Whether Value has Shape (see tests/cli/json.txt); the first difference in Where.
bool hasShape(const QJsonValue &value, const QJsonValue &shape, const QString &path, QString &where)
{
    if (shape.isString()) {
        static const QHash<QString, QJsonValue::Type> types{
            { u"string"_s, QJsonValue::String }, { u"number"_s, QJsonValue::Double }, { u"boolean"_s, QJsonValue::Bool },
            { u"null"_s, QJsonValue::Null },     { u"array"_s, QJsonValue::Array },   { u"object"_s, QJsonValue::Object } };
        for (const QString &type : shape.toString().split(u'|'))
            if (types.value(type, QJsonValue::Undefined) == value.type())
                return true;
        where = path + u": not "_s + shape.toString();
        return false;
    }
    if (shape.isArray()) {
        if (!value.isArray() || value.toArray().isEmpty()) {
            where = path + u": not a non-empty array"_s;
            return false;
        }
        const QJsonArray items = value.toArray();
        for (qsizetype i = 0; i < items.size(); ++i)
            if (!hasShape(items[i], shape.toArray()[0], path + u'/' + QString::number(i), where))
                return false;
        return true;
    }
    const QJsonObject keys = shape.toObject();
    if (!value.isObject() || value.toObject().keys() != keys.keys()) {
        where = path + u": keys "_s + (value.isObject() ? value.toObject().keys().join(u',') : u"(no object)"_s)
            + u" instead of "_s + keys.keys().join(u',');
        return false;
    }
    for (auto key = keys.begin(); key != keys.end(); ++key)
        if (!hasShape(value.toObject()[key.key()], key.value(), path + u'/' + key.key(), where))
            return false;
    return true;
}

// A JSON text's value; an empty object for what is no JSON.
QJsonValue json(const QByteArray &text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

// Bytes of a contract text: \r, \n, \t and \\ as in C, \xNN as that byte (files in other encodings).
QByteArray unescaped(const QString &text)
{
    const QByteArray utf8 = text.toUtf8();
    QByteArray bytes;
    for (qsizetype i = 0; i < utf8.size(); ++i) {
        if (utf8[i] != '\\' || i + 1 == utf8.size()) {
            bytes += utf8[i];
            continue;
        }
        const char c = utf8[++i];
        if (c == 'x') {
            bytes += char(utf8.mid(i + 1, 2).toInt(nullptr, 16));
            i += 2;
        } else {
            bytes += c == 'r' ? '\r' : c == 'n' ? '\n' : c == 't' ? '\t' : c;
        }
    }
    return bytes;
}

// Arguments as a shell splits them: at blanks, with double quotes around a text that has blanks or
// is empty.
QStringList arguments(const QString &text)
{
    QStringList args;
    QString arg;
    bool quoted = false, any = false;
    for (const QChar c : QString(text + u' ')) {
        if (c == u'"') {
            quoted = !quoted;
            any = true;
        } else if (c == u' ' && !quoted) {
            if (any || !arg.isEmpty())
                args << arg;
            arg.clear();
            any = false;
        } else {
            arg += c;
        }
    }
    return args;
}

// The command line's contract as its users meet it, from tests/cli/contract.txt and json.txt: each
// run's exit code and a text of its output (of standard error alone for a failure, whose standard
// output must stay empty), in order, on each product. The files' heads explain their lines.
TEST_F(CliTest, Contract)
{
    for (const QString &name : { u"contract.txt"_s, u"json.txt"_s }) {
        const QByteArray contract = kxtest::readFile(QStringLiteral(KX_CLI_CONTRACTS) + u'/' + name);
        ASSERT_FALSE(contract.isEmpty()) << name.toStdString();
        kxtest::emptyDatabase(*compSqlConnection);
        const QDir scratch(m_scratch.filePath(name));
        scratch.mkpath(u"."_s);
        QHash<QString, QString> values{ { u"SCRATCH"_s, scratch.path() }, { u"DB"_s, m_connectionString } };
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        CliRun last{};
        int number = 0;
        for (const QString &line : QString::fromUtf8(contract).split(u'\n')) {
            ++number;
            if (line.trimmed().isEmpty() || line.startsWith(u'#'))
                continue;
            QStringList fields = (line.endsWith(u" ¦"_s) ? line + u' ' : line).split(u" ¦ "_s);
            for (QString &field : fields)
                for (auto v = values.begin(); v != values.end(); ++v)
                    field.replace(u'{' + v.key() + u'}', v.value());
            SCOPED_TRACE(name.toStdString() + ":" + std::to_string(number) + ": " + line.toStdString());
            const QString verb = fields[0].section(u' ', 0, 0), what = fields[0].section(u' ', 1);
            const QByteArray bytes = unescaped(fields.value(1));
            const QString text = QString::fromUtf8(bytes);
            if (verb == u"write"_s) {
                kxtest::writeFile(scratch.filePath(what), bytes);
            } else if (verb == u"random"_s) {
                QByteArray bytes(fields.value(1).toInt(), Qt::Uninitialized);
                for (char &b : bytes)
                    b = char(QRandomGenerator::global()->bounded(256));
                kxtest::writeFile(scratch.filePath(what), bytes);
            } else if (verb == u"head"_s) {
                kxtest::writeFile(scratch.filePath(what), kxtest::readFile(scratch.filePath(text)).left(fields.value(2).toInt()));
            } else if (verb == u"mkdir"_s) {
                scratch.mkpath(what);
            } else if (verb == u"env"_s) {
                environment.insert(what, text);
            } else if (verb == u"absent"_s) {
                EXPECT_FALSE(QFile::exists(scratch.filePath(what)));
            } else if (verb == u"same"_s) {
                EXPECT_EQ(kxtest::readFile(scratch.filePath(what)), kxtest::readFile(scratch.filePath(text)));
            } else if (verb == u"capture"_s) {
                values.insert(what, QRegularExpression(fields.value(1)).match(last.out).captured(1));
            } else if (verb == u"once"_s) {
                EXPECT_EQ(last.out.count(text), 1) << last.out.toStdString();
            } else if (verb == u"shape"_s) {
                QString where;
                EXPECT_TRUE(hasShape(json(last.out.toUtf8()), json(bytes), QString(), where))
                    << where.toStdString() << "\n" << last.out.toStdString();
            } else {
                bool isCode = false;
                const int expected = verb.toInt(&isCode);
                ASSERT_TRUE(isCode) << "unknown line";
                last = invoke(arguments(fields.value(2)), environment, scratch.path());
                EXPECT_EQ(last.exitCode, expected) << last.err.toStdString();
                const QString where = expected ? last.err : last.out + last.err;
                EXPECT_TRUE(text.startsWith(u'=') ? last.out == text.mid(1) : where.contains(text))
                    << last.out.toStdString() << last.err.toStdString();
                EXPECT_TRUE(!expected || last.out.isEmpty()) << "a failure's output: " << last.out.toStdString();
            }
        }
    }
}

TEST_F(CliTest, MergeWritesADocumentPerRecord)
{
    ASSERT_EQ(invoke({ u"sys"_s, u"init"_s }).exitCode, 0);
    kxtest::exec(u"create table PERSONEN (ID varchar(10), NAME varchar(40), ORT varchar(40))"_s);
    kxtest::exec(u"insert into PERSONEN (ID, NAME, ORT) values ('1', 'Weber', 'Reinheim')"_s);
    kxtest::exec(u"insert into PERSONEN (ID, NAME, ORT) values ('2', 'Lang', 'Dieburg')"_s);
    kxtest::exec(u"insert into OfficeTableMapping (ID, TABLENAME, FIELDNAME, OFFICENAME) values ('p1', 'PERSONEN', 'NAME', 'Name1')"_s);
    const QString vorlagen = m_scratch.filePath(u"vorlagen"_s);
    QDir().mkpath(vorlagen);
    writeTemplate(vorlagen + u"/Brief.docx"_s, "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml");
    const CliRun merged = invoke({ u"--json"_s, u"merge"_s, u"Brief.docx"_s, u"PERSONEN"_s,
                                   u"select NAME from PERSONEN order by ID"_s, u"--no-open"_s, u"--search-path"_s, vorlagen });
    ASSERT_EQ(merged.exitCode, 0) << merged.err.toStdString();
    const QJsonArray documents = QJsonDocument::fromJson(merged.out.toUtf8()).object()[u"documents"_s].toArray();
    ASSERT_EQ(documents.size(), 2) << merged.out.toStdString();
    EXPECT_EQ(documents[1].toString(), m_scratch.filePath(u"Brief-2.docx"_s));
    EXPECT_TRUE(zipEntry(documents[1].toString(), u"word/document.xml"_s).contains(">Lang</w:t>"));
}

} // namespace
