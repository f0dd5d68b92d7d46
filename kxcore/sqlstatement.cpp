// SPDX-License-Identifier: LGPL-2.1-or-later
// The one-statement check: reads a text as the product's own lexer does, far enough to find a
// ";" that ends a statement.
#include "kxerror.h"
#include "sqlconnection.h"
#include "sqldriver.h"
#include "sqldialect.h"

#include <QRegularExpression>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace kx {

namespace {

bool isNameChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'_' || c == u'$';
}

class Scanner
{
public:
    Scanner(const QString &sql, const SqlLexis &lexis)
        : m_sql(sql)
        , m_lexis(lexis)
    {
    }

    // The position of the first ";" outside literals, names and comments, or -1.
    qsizetype firstTerminator()
    {
        while (m_i < m_sql.size()) {
            if (m_sql.at(m_i) == u';')
                return m_i;
            skipToken();
        }
        return -1;
    }

    // The text with comments blanked and every character of a literal or quoted name replaced
    // by "x": the same length, so that positions found in it hold in the text.
    QString codeMask()
    {
        QString mask = m_sql;
        while (m_i < m_sql.size()) {
            const qsizetype start = m_i;
            const bool comment = (at(m_i) == u'-' && at(m_i + 1) == u'-') || (at(m_i) == u'/' && at(m_i + 1) == u'*');
            skipToken();
            if (m_i - start > 1 || comment)
                mask.replace(start, m_i - start, QString(m_i - start, comment ? u' ' : u'x'));
        }
        return mask;
    }

private:
    QChar at(qsizetype i) const { return i >= 0 && i < m_sql.size() ? m_sql.at(i) : QChar(); }

    void skipToken()
    {
        const QChar c = m_sql.at(m_i);
        const bool wordStart = !isNameChar(at(m_i - 1));
        if (c == u'\'' || c == u'"')
            skipQuoted(c, false, 1);
        else if (m_lexis.escapeStrings && wordStart && (c == u'E' || c == u'e') && at(m_i + 1) == u'\'')
            skipQuoted(u'\'', true, 2);
        else if (m_lexis.qLiterals && wordStart && (c == u'Q' || c == u'q') && at(m_i + 1) == u'\''
                 && m_i + 2 < m_sql.size())
            skipQLiteral();
        else if (m_lexis.bracketNames && c == u'[')
            skipQuoted(u']', false, 1);
        else if (m_lexis.bracketNames && c == u'`')
            skipQuoted(u'`', false, 1);
        else if (m_lexis.dollarQuotes && wordStart && c == u'$')
            skipDollarQuoted();
        else if (c == u'-' && at(m_i + 1) == u'-')
            skipTo(u"\n"_s, m_i + 2);
        else if (c == u'/' && at(m_i + 1) == u'*')
            skipComment();
        else
            ++m_i;
    }

    // From the opening (of prefixLength characters) past the closing character; a doubled
    // closing character stays inside, and with backslashes a "\" takes the next character.
    void skipQuoted(QChar close, bool backslashes, int prefixLength)
    {
        for (m_i += prefixLength; m_i < m_sql.size(); ++m_i) {
            const QChar c = m_sql.at(m_i);
            if (backslashes && c == u'\\') {
                ++m_i;
            } else if (c == close) {
                if (at(m_i + 1) != close) {
                    ++m_i;
                    return;
                }
                ++m_i;
            }
        }
    }

    void skipQLiteral()
    {
        const QChar open = m_sql.at(m_i + 2);
        const QChar close = open == u'(' ? u')' : open == u'{' ? u'}' : open == u'[' ? u']' : open == u'<' ? u'>' : open;
        skipTo(QString(close) + u'\'', m_i + 3);
    }

    void skipDollarQuoted()
    {
        qsizetype j = m_i + 1;
        while (j < m_sql.size() && m_sql.at(j) != u'$' && (m_sql.at(j).isLetter() || m_sql.at(j) == u'_'
                                                           || (j > m_i + 1 && m_sql.at(j).isDigit())))
            ++j;
        if (at(j) != u'$') { // "$1" and the like are parameters, not quotes
            ++m_i;
            return;
        }
        const QString tag = m_sql.mid(m_i, j - m_i + 1);
        skipTo(tag, j + 1);
    }

    void skipComment()
    {
        int depth = 0;
        while (m_i < m_sql.size()) {
            if (at(m_i) == u'/' && at(m_i + 1) == u'*' && (depth == 0 || m_lexis.nestedComments)) {
                ++depth;
                m_i += 2;
            } else if (at(m_i) == u'*' && at(m_i + 1) == u'/') {
                m_i += 2;
                if (--depth == 0)
                    return;
            } else {
                ++m_i;
            }
        }
    }

    // Past the next occurrence of end at or after from; an unterminated token runs to the end.
    void skipTo(const QString &end, qsizetype from)
    {
        const qsizetype found = m_sql.indexOf(end, from);
        m_i = found < 0 ? m_sql.size() : found + end.size();
    }

    const QString &m_sql;
    const SqlLexis m_lexis;
    qsizetype m_i = 0;
};

// Where each item of the ORDER BY clause that begins at from ends, in the mask; the clause
// ends at a ")" closing its bracket, at LIMIT, OFFSET, FETCH or FOR, or at the end.
QList<qsizetype> orderItemEnds(const QString &mask, qsizetype from)
{
    static const QRegularExpression clauseEnd(u"\\G(limit|offset|fetch|for)\\b"_s,
                                              QRegularExpression::CaseInsensitiveOption);
    QList<qsizetype> ends;
    int depth = 0;
    qsizetype j = from;
    for (; j < mask.size(); ++j) {
        const QChar c = mask.at(j);
        if (c == u'(') {
            ++depth;
        } else if (c == u')') {
            if (depth-- == 0)
                break;
        } else if (c == u',' && depth == 0) {
            ends << j;
        } else if (depth == 0 && !isNameChar(mask.at(j - 1)) && clauseEnd.match(mask, j).hasMatch()) {
            break;
        }
    }
    ends << j;
    return ends;
}

} // namespace

QString withNullsLowest(const QString &sql, const SqlLexis &lexis)
{
    if (!sql.contains(u"order"_s, Qt::CaseInsensitive))
        return sql;
    static const QRegularExpression orderBy(u"\\border\\s+by\\b"_s, QRegularExpression::CaseInsensitiveOption);
    static const QRegularExpression lastWord(u"(\\w+)\\s*$"_s);
    static const QRegularExpression explicitNulls(u"\\b(nulls|using)\\b"_s, QRegularExpression::CaseInsensitiveOption);
    const QString mask = Scanner(sql, lexis).codeMask();
    QList<std::pair<qsizetype, QString>> inserts;
    for (const QRegularExpressionMatch &clause : orderBy.globalMatch(mask)) {
        qsizetype itemStart = clause.capturedEnd();
        for (const qsizetype end : orderItemEnds(mask, itemStart)) {
            qsizetype last = end;
            while (last > itemStart && mask.at(last - 1).isSpace())
                --last;
            const QString item = mask.mid(itemStart, last - itemStart);
            itemStart = end + 1;
            if (item.trimmed().isEmpty() || explicitNulls.match(item).hasMatch())
                continue;
            const bool descending = lastWord.match(item).captured(1).compare(u"desc"_s, Qt::CaseInsensitive) == 0;
            inserts.append({ last, descending ? u" NULLS LAST"_s : u" NULLS FIRST"_s });
        }
    }
    // From the back, so that each position still holds when it is reached.
    std::sort(inserts.begin(), inserts.end(), [](const auto &a, const auto &b) { return a.first > b.first; });
    QString result = sql;
    for (const auto &[position, text] : inserts)
        result.insert(position, text);
    return result;
}

QString singleStatement(const QString &sql)
{
    return singleStatement(sql, SqlLexis());
}

QString singleStatement(const QString &sql, const SqlLexis &lexis)
{
    const qsizetype end = Scanner(sql, lexis).firstTerminator();
    if (end < 0)
        return sql;
    for (qsizetype j = end + 1; j < sql.size(); ++j) {
        if (!sql.at(j).isSpace() && sql.at(j) != u';')
            throw DatabaseError(
                u"Die Anweisung enthält nach \";\" eine zweite Anweisung und wird nicht ausgeführt:\n%1"_s.arg(sql),
                sql);
    }
    return sql.left(end);
}

} // namespace kx
