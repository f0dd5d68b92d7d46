// SPDX-License-Identifier: LGPL-2.1-or-later
#include "command.h"

#include <cmath>
#include <limits>

#include "formatsettings.h"
#include "kxerror.h"
#include "sqltool.h"

#include <QJsonObject>

using namespace Qt::StringLiterals;

CliOutput cliInitTables(const CliContext &context, const std::function<void()> &create,
                        const std::function<void()> &addSample, const QString &createdText, const QString &sampleText)
{
    const CliArguments arguments(context, {}, { u"sample"_s });
    arguments.positional(0, u"keine Argumente"_s);
    create();
    const bool sample = arguments.has(u"sample"_s);
    if (sample)
        addSample();
    return { QJsonObject{ { u"done"_s, true } }, (sample ? sampleText : createdText) + u'\n' };
}

CliArguments::CliArguments(const CliContext &context, const QStringList &valued, const QStringList &flags)
{
    const QStringList &args = context.args;
    for (int i = 0; i < args.size(); ++i) {
        const QString &arg = args.at(i);
        if (i >= context.optionsEnd || !arg.startsWith(u"--"_s)) {
            m_positional << arg;
            continue;
        }
        // "--name value" or "--name=value", as with --db.
        const qsizetype equals = arg.indexOf(u'=');
        const QString name = equals < 0 ? arg.mid(2) : arg.mid(2, equals - 2);
        if (flags.contains(name)) {
            if (equals >= 0)
                throw CliUsageError{ u"--%1 ist ein Schalter und nimmt keinen Wert."_s.arg(name) };
            m_flags << name;
        } else if (valued.contains(name)) {
            if (equals >= 0)
                m_values.insert(name, arg.mid(equals + 1));
            else if (i + 1 >= args.size())
                throw CliUsageError{ u"--%1 erwartet einen Wert."_s.arg(name) };
            else
                m_values.insert(name, args.at(++i));
        } else {
            throw CliUsageError{ u"unbekannte Option %1."_s.arg(arg) };
        }
    }
}

const QStringList &CliArguments::positional(int count, const QString &what) const
{
    return positional(count, count, what);
}

const QStringList &CliArguments::positional(int min, int max, const QString &what) const
{
    if (m_positional.size() > max)
        throw CliUsageError{ u"zu viele Argumente (%1 statt höchstens %2): erwartet %3."_s.arg(m_positional.size())
                                 .arg(max)
                                 .arg(what) };
    if (m_positional.size() < min)
        throw CliUsageError{ u"zu wenige Argumente: erwartet %1."_s.arg(what) };
    return m_positional;
}

double cliNumber(const QString &text, const QString &what)
{
    try {
        return kx::parseFloat(text);
    } catch (const kx::ConvertError &) {
        bool ok = false;
        const double value = text.trimmed().toDouble(&ok);
        // "nan" and "inf" read as doubles, but no amount, quantity or distance is one.
        if (!ok || !std::isfinite(value))
            throw CliUsageError{ u"%1 \"%2\" ist keine Zahl."_s.arg(what, text) };
        return value;
    }
}

namespace {

// A whole number that fits Int; otherwise a usage error naming What and the range.
template<class Int>
Int wholeNumber(const QString &text, const QString &what)
{
    bool ok = false;
    const qint64 value = text.toLongLong(&ok);
    if (!ok || value < std::numeric_limits<Int>::min() || value > std::numeric_limits<Int>::max())
        throw CliUsageError{ u"%1 \"%2\" ist keine ganze Zahl im %3-Bit-Bereich."_s.arg(what, text).arg(sizeof(Int) * 8) };
    return Int(value);
}

} // namespace

int cliWholeNumber(const QString &text, const QString &what)
{
    return wholeNumber<int>(text, what);
}

qint64 cliLargeNumber(const QString &text, const QString &what)
{
    return wholeNumber<qint64>(text, what);
}

QString cliCount(qint64 count, const QString &one, const QString &many)
{
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

QString cliAmount(double value)
{
    return kx::formatAmount(value);
}

QJsonValue cliTextOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue() : QJsonValue(text);
}
