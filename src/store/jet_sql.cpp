#include "store/jet_sql.h"

#include "core/dates.h"
#include "core/runtime_error.h"

namespace tesorel::jet
{

QString syntaxMessage(const QString &expression)
{
    return QStringLiteral("Error de sintaxis en la expresión de consulta '%1'.").arg(expression);
}

namespace
{

[[noreturn]] void syntaxError(const QString &whole)
{
    throw RuntimeError(err::SyntaxError, syntaxMessage(whole));
}

bool isWordStart(QChar c)
{
    return c.isLetter() || c == u'_';
}
bool isWordChar(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

int skipSpaces(const QString &s, int i)
{
    while (i < s.size() && s[i].isSpace())
        ++i;
    return i;
}

QString wordAt(const QString &s, int i)
{
    int j = i;
    while (j < s.size() && isWordChar(s[j]))
        ++j;
    return s.mid(i, j - i);
}

// Reads a quoted run that starts at `i` with `quote`; a doubled quote stands
// for itself. Returns the index just past the closing quote, or -1.
int endOfQuoted(const QString &s, int i, QChar quote, QString *content)
{
    for (int j = i + 1; j < s.size(); ++j) {
        if (s[j] != quote) {
            content->append(s[j]);
            continue;
        }
        if (j + 1 < s.size() && s[j + 1] == quote) {
            content->append(quote);
            ++j;
            continue;
        }
        return j + 1;
    }
    return -1;
}

QString textLiteral(const QString &content)
{
    QString doubled = content;
    doubled.replace(u'\'', QStringLiteral("''"));
    // Jet compares text without regard to case.
    return u'\'' + doubled + QStringLiteral("' COLLATE NOCASE");
}

enum class Mode { Statement, Criteria, Parameters };

QString translateText(const QString &jet, Mode mode)
{
    QString out;
    out.reserve(jet.size() + 32);
    int depth = 0;
    int i = 0;
    const int n = jet.size();
    while (i < n) {
        const QChar c = jet[i];
        if (c.isNull())
            syntaxError(jet);
        if (c == u'\'' || c == u'"') {
            QString content;
            const int end = endOfQuoted(jet, i, c, &content);
            if (end < 0)
                syntaxError(jet);
            out += textLiteral(content);
            i = end;
        } else if (c == u'[') {
            const int close = jet.indexOf(u']', i + 1);
            if (close < 0)
                syntaxError(jet);
            QString name = jet.mid(i + 1, close - i - 1);
            name.replace(u'"', QStringLiteral("\"\""));
            out += u'"' + name + u'"';
            i = close + 1;
        } else if (c == u'#') {
            const int close = jet.indexOf(u'#', i + 1);
            if (close < 0)
                syntaxError(jet);
            const QDate date = DateFromJetLiteral(jet.mid(i + 1, close - i - 1).trimmed());
            if (!date.isValid())
                throw RuntimeError(
                    err::SyntaxError,
                    QStringLiteral("Error de sintaxis en la fecha en la expresión de consulta '%1'.")
                        .arg(jet));
            out += u'\'' + date.toString(QStringLiteral("yyyy-MM-dd")) + u'\'';
            i = close + 1;
        } else if (isWordStart(c)) {
            const QString word = wordAt(jet, i);
            const QString lower = word.toLower();
            int next = i + word.size();
            const int after = skipSpaces(jet, next);
            const bool call = after < n && jet[after] == u'(';
            const bool qualified = i > 0 && jet[i - 1] == u'.';
            if (!qualified && !call && (lower == u"true" || lower == u"false")) {
                out += lower == u"true" ? u'1' : u'0';
            } else if (!qualified && call && (lower == u"date" || lower == u"now")) {
                const int close = skipSpaces(jet, after + 1);
                if (close < n && jet[close] == u')') {
                    out += lower == u"date" ? QStringLiteral("date('now','localtime')")
                                            : QStringLiteral("datetime('now','localtime')");
                    next = close + 1;
                } else {
                    out += word;
                }
            } else if (lower == u"delete" && after < n && jet[after] == u'*' &&
                       wordAt(jet, skipSpaces(jet, after + 1)).toLower() == u"from") {
                // "delete * from t" is the dialect's way of saying "delete from t".
                out += word + u' ';
                next = skipSpaces(jet, after + 1);
            } else {
                out += word;
            }
            i = next;
        } else if (c == u'&') {
            out += QStringLiteral(" || ");
            ++i;
        } else if (c == u';') {
            if (mode == Mode::Criteria || skipSpaces(jet, i + 1) < n)
                throw RuntimeError(
                    err::SyntaxError,
                    QStringLiteral("Se encontraron caracteres después del final de la instrucción SQL."));
            i = n;
        } else if (c == u'?') {
            // Outside a LIKE pattern a '?' means nothing to the dialect, but
            // a statement with bound values marks each of them with one.
            if (mode != Mode::Parameters)
                syntaxError(jet);
            // No collation of its own: the column's decides (the text columns
            // ignore case), and the indexes on numbers and days stay usable.
            out += c;
            ++i;
        } else {
            if (c == u'(')
                ++depth;
            else if (c == u')' && --depth < 0)
                syntaxError(jet);
            out += c;
            ++i;
        }
    }
    if (depth != 0)
        syntaxError(jet);
    return out.trimmed();
}

// One element of a LIKE pattern.
struct PatternItem {
    enum Kind { Any, One, Digit, Set, Literal };
    PatternItem(Kind k, QChar c) : kind(k), ch(c) {}
    Kind kind;
    QChar ch;
    bool negate = false;
    QString members; // pairs of range ends: "aa" for a single char, "az" for a-z
};

QList<PatternItem> parsePattern(const QString &pattern)
{
    QList<PatternItem> items;
    for (int i = 0; i < pattern.size(); ++i) {
        const QChar c = pattern[i];
        if (c == u'*') {
            if (items.isEmpty() || items.last().kind != PatternItem::Any)
                items.append({PatternItem::Any, c});
        } else if (c == u'?') {
            items.append({PatternItem::One, c});
        } else if (c == u'#') {
            items.append({PatternItem::Digit, c});
        } else if (c == u'[' && pattern.indexOf(u']', i + 1) > i + 1) {
            const int close = pattern.indexOf(u']', i + 1);
            PatternItem item(PatternItem::Set, c);
            int k = i + 1;
            if (pattern[k] == u'!' && k + 1 < close) {
                item.negate = true;
                ++k;
            }
            for (; k < close; ++k) {
                const QChar from = pattern[k].toCaseFolded();
                if (k + 2 < close && pattern[k + 1] == u'-') {
                    item.members += from;
                    item.members += pattern[k + 2].toCaseFolded();
                    k += 2;
                } else {
                    item.members += from;
                    item.members += from;
                }
            }
            items.append(item);
            i = close;
        } else {
            items.append({PatternItem::Literal, c.toCaseFolded()});
        }
    }
    return items;
}

bool itemMatches(const PatternItem &item, QChar c)
{
    switch (item.kind) {
    case PatternItem::One:
        return true;
    case PatternItem::Digit:
        return c >= u'0' && c <= u'9';
    case PatternItem::Literal:
        return item.ch == c;
    case PatternItem::Set: {
        bool in = false;
        for (int k = 0; k + 1 < item.members.size(); k += 2)
            in = in || (c >= item.members[k] && c <= item.members[k + 1]);
        return in != item.negate;
    }
    case PatternItem::Any:
        break;
    }
    return false;
}

} // namespace

QString translate(const QString &jetSql)
{
    return translateText(jetSql, Mode::Statement);
}

QString translateWithParameters(const QString &jetSql)
{
    return translateText(jetSql, Mode::Parameters);
}

QString translateCriteria(const QString &criteria)
{
    const QString out = translateText(criteria, Mode::Criteria);
    if (out.isEmpty())
        syntaxError(criteria);
    return out;
}

bool likeMatch(const QString &pattern, const QString &text)
{
    const QList<PatternItem> items = parsePattern(pattern);
    const QString folded = text.toCaseFolded();
    // Greedy match that only ever backtracks to the last '*': linear in
    // practice, never exponential.
    qsizetype p = 0, t = 0, starItem = -1, starText = 0;
    while (t < folded.size()) {
        if (p < items.size() && items[p].kind == PatternItem::Any) {
            starItem = p++;
            starText = t;
        } else if (p < items.size() && itemMatches(items[p], folded[t])) {
            ++p;
            ++t;
        } else if (starItem >= 0) {
            p = starItem + 1;
            t = ++starText;
        } else {
            return false;
        }
    }
    while (p < items.size() && items[p].kind == PatternItem::Any)
        ++p;
    return p == items.size();
}

} // namespace tesorel::jet
