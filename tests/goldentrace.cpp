// SPDX-License-Identifier: LGPL-2.1-or-later
#include "goldentrace.h"

#include "kxerror.h"
#include "scratchfiles.h"
#include "sqlconnection.h"
#include "sqltool.h"
#include "testdatabase.h"

#include <QDate>
#include <QHash>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace kxtest {
namespace {

QString traceText(const QStringList &statements, const TraceNames &names)
{
    static const QRegularExpression key(u"[0-9A-F]{32}"_s);
    QHash<QString, QString> numbered;
    QString text;
    for (QString sql : statements) {
        for (const auto &[value, name] : names)
            sql.replace(value, name);
        QString out;
        qsizetype done = 0;
        for (auto it = key.globalMatch(sql); it.hasNext();) {
            const QRegularExpressionMatch m = it.next();
            QString &name = numbered[m.captured()];
            if (name.isEmpty())
                name = u"<key%1>"_s.arg(numbered.size());
            out += sql.mid(done, m.capturedStart() - done) + name;
            done = m.capturedEnd();
        }
        text += out + sql.mid(done) + u"\n;\n"_s;
    }
    return text;
}

QString goldenPath(const QString &scenario, const QString &suffix)
{
    return QStringLiteral(KX_GOLDEN_DIR) + u'/' + scenario + suffix + u".sql"_s;
}

// The first statement where the two texts part, for the failure message.
QString firstDifference(const QString &expected, const QString &actual)
{
    const QStringList e = expected.split(u"\n;\n"_s), a = actual.split(u"\n;\n"_s);
    for (qsizetype i = 0; i < std::max(e.size(), a.size()); ++i)
        if (e.value(i) != a.value(i))
            return u"statement %1\n  expected: %2\n  actual:   %3"_s.arg(i + 1).arg(e.value(i, u"(none)"_s), a.value(i, u"(none)"_s));
    return {};
}

} // namespace

QStringList withoutClock(QStringList statements)
{
    static const QRegularExpression time(u"'\\d\\d:\\d\\d:\\d\\d'"_s);
    static const QRegularExpression stamp(u"'(\\d{8})\\d{9}'"_s);
    const QDate today = QDate::currentDate();
    const QString month = QString::number(today.month()), year = QString::number(today.year());
    for (QString &sql : statements) {
        sql.replace(time, u"'<time>'"_s).replace(stamp, u"'\\1<clock>'"_s);
        sql.replace(u"'"_s + sqlConvertDate(today) + u"'"_s, u"'<today>'"_s);
        sql.replace(u"Monat="_s + today.toString(u"MM"_s), u"Monat=<month>"_s).replace(u"Jahr="_s + year, u"Jahr=<year>"_s);
        sql.replace(u"MONAT="_s + month + u",JAHR="_s + year, u"MONAT=<month>,JAHR=<year>"_s);
        sql.replace(u"',"_s + month + u',' + year + u',', u"',<month>,<year>,"_s);
    }
    return statements;
}

void expectGoldenTrace(const QString &scenario, const QStringList &statements, const TraceNames &names)
{
    QStringList sent; // as the connection sends them to this product
    for (const QString &sql : statements) {
        try {
            sent << compSqlConnection->textToSend(sql);
        } catch (const kx::Error &) {
            sent << sql; // a text the connection refuses stands as written
        }
    }
    const QString actual = traceText(sent, names);
    const QString shared = goldenPath(scenario, {});
    const QString own = goldenPath(scenario, u'.' + product());
    if (qEnvironmentVariable("KX_GOLDEN_UPDATE") == u"1"_s) {
        if (product() == u"sqlite"_s)
            writeFile(shared, actual.toUtf8());
        else if (QString::fromUtf8(readFile(shared)) == actual)
            QFile::remove(own);
        else
            writeFile(own, actual.toUtf8());
        return;
    }
    const QString path = QFile::exists(own) ? own : shared;
    if (!QFile::exists(path)) {
        ADD_FAILURE() << "no golden trace " << path.toStdString() << " (scripts/golden.sh writes it)";
        return;
    }
    const QString expected = QString::fromUtf8(readFile(path));
    if (expected != actual)
        ADD_FAILURE() << "trace differs from " << path.toStdString() << " on " << product().toStdString() << ", "
                      << firstDifference(expected, actual).toStdString();
}

} // namespace kxtest
