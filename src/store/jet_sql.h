#pragma once
#include <QString>

namespace tesorel::jet
{

// The one place where the dialect becomes SQLite SQL: #month-first# dates
// to ISO text, `delete * from`, LIKE with * ? # and [sets], [bracketed]
// names, True/False, & for joining text and the Jet functions that the
// statements use. Throws RuntimeError(err::SyntaxError, ...) for what the
// engine would refuse (an unclosed quote, a bad date literal).
QString translate(const QString &jetSql);

// The same for a statement whose values are bound: each '?' outside a text
// stands for one of them, so no value read from a file or typed ever
// becomes part of the statement's text.
QString translateWithParameters(const QString &jetSql);

// A criterion of FindFirst/Filter ("FECHA = #03/15/24#", "valor = 12 and
// usuario = 1", "Nombre = 'X'", "Abreviatura11 LIKE 'B*'") as an SQLite
// WHERE expression.
QString translateCriteria(const QString &criteria);

// The text of the syntax failure for a query expression.
QString syntaxMessage(const QString &expression);

} // namespace tesorel::jet

namespace tesorel::jet
{
// The LIKE of the dialect: * any run, ? one character, # one digit, [a-z]
// and [!a-z] sets; without regard to case. The base's like() is this.
bool likeMatch(const QString &pattern, const QString &text);
} // namespace tesorel::jet
