// SPDX-License-Identifier: LGPL-2.1-or-later
// Street and object-name splitting, and the district of an address in the street directory.
#include "aaocommon.h"

#include "sqltool.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool isAsciiLetter(QChar c)
{
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z');
}

// The position (from 1) of the character before the house number, scanning back over a letter
// suffix and then the digits; 0 when the line has no house number at its end.
qsizetype houseNumberStart(const QString &line)
{
    bool digitSeen = false;
    for (qsizetype i = line.size(); i > 0; --i) {
        const QChar c = line.at(i - 1);
        if (isDigit(c)) {
            digitSeen = true;
        } else if (!digitSeen) {
            if (!isAsciiLetter(c))
                return 0;
        } else {
            return i;
        }
    }
    return 0;
}

const QString selectDistrict = u"select \r\n  ORTSTEIL \r\nfrom \r\n  ORTE \r\nwhere \r\n"_s;
const QString selectCount = u"select \r\n  count(*) \r\nfrom \r\n  ORTE \r\nwhere \r\n"_s;

// The head of a district query with the postcode condition when a postcode is given.
QString head(const QString &select, const QString &plz)
{
    if (plz.trimmed().isEmpty())
        return select;
    return select + u"  SELECTPLZ = '%1' and "_s.arg(SqlGetSelectFieldValue(plz));
}

QString streetCondition(const QString &ort, const QString &strasse)
{
    return u"  SELECTORT = '%1' and \r\n  SELECTSTRASSE = '%2'"_s.arg(SqlGetSelectFieldValue(ort),
                                                                     SqlGetSelectFieldValue(strasse));
}

} // namespace

TAaoStrasseParts AaoSplitStrasse(QString Text)
{
    TAaoStrasseParts parts;
    if (Text.trimmed().isEmpty())
        return parts;
    const qsizetype slash = Text.indexOf(u'/');
    if (slash >= 0)
        Text[slash] = u'\n';
    Text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QStringList lines = Text.split(u'\n');
    if (lines.size() > 1 && lines.last().isEmpty())
        lines.removeLast(); // a closing line break makes no line of its own
    if (lines.size() >= 2)
        parts.Zusatz = lines.at(1).trimmed();

    const QString line = lines.at(0).trimmed();
    const qsizetype P = houseNumberStart(line);
    if (P == 0) {
        parts.Strasse = line;
        return parts;
    }
    parts.Strasse = line.left(P - 1).trimmed();
    for (const QChar c : line.mid(P - 1).trimmed()) {
        if (isDigit(c))
            parts.Hausnummer += c;
        else
            parts.HausnummerZusatz += c;
    }
    return parts;
}

TAaoObjektNameParts AaoSplitObjektName(QString Text)
{
    TAaoObjektNameParts parts;
    if (Text.trimmed().isEmpty())
        return parts;
    const qsizetype P = Text.indexOf(u"- "_s);
    if (P >= 0) {
        parts.Prefix = Text.left(P).trimmed();
        parts.Name = Text.mid(P + 2).trimmed();
    } else {
        parts.Name = Text;
    }
    return parts;
}

QString AaoFindOrtsteil(QString Plz, QString Ort, QString Strasse, QString Hausnummer)
{
    const bool withNumber = !Hausnummer.trimmed().isEmpty();
    if (withNumber) {
        const QString district = sqlGetValue(head(selectDistrict, Plz) + streetCondition(Ort, Strasse + Hausnummer)
                                             + u' ');
        if (!district.isEmpty())
            return district;
    }

    QString digits;
    for (const QChar c : Hausnummer)
        if (isDigit(c))
            digits += c;
    bool ok = false;
    const int N = digits.toInt(&ok);
    if (withNumber && ok) {
        const bool odd = N % 2 != 0;
        const QString street = streetCondition(Ort, Strasse);
        const QString exact = odd ? u" and \r\n  HNRUVON <= %1 and \r\n  HNRUBIS >= %1 "_s
                                  : u" and \r\n  HNRGVON <= %1 and \r\n  HNRGBIS >= %1 "_s;
        QString district = sqlGetValue(head(selectDistrict, Plz) + street + exact.arg(N));
        if (!district.isEmpty())
            return district;
        // The other parity's range when the street entry lacks this one; open bounds 0 and 10000.
        const QString other = odd ? u" and \r\n  %1 >= COALESCE(HNRUVON, HNRGVON, 0) and \r\n  %1 <= COALESCE(HNRUBIS, "
                                    u"HNRGBIS, 10000) and \r\n  (HNRGVON is null or HNRGBIS is null)"_s
                                  : u" and \r\n  %1 >= COALESCE(HNRGVON, HNRUVON, 0) and \r\n  %1 <= COALESCE(HNRGBIS, "
                                    u"HNRUBIS, 10000) and \r\n  (HNRUVON is null or HNRUBIS is null)"_s;
        district = sqlGetValue(head(selectDistrict, Plz) + street + other.arg(N));
        if (!district.isEmpty())
            return district;
    }

    // The street alone, when the directory holds it once for the town.
    const QString street = streetCondition(Ort, Strasse);
    if (sqlGetValueInt(head(selectCount, Plz) + street) == 1)
        return sqlGetValue(head(selectDistrict, Plz) + street);
    return QString();
}
