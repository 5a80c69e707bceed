#include "database/sql.h"

#include "base/number_text.h"
#include "base/whole_text.h"

namespace {
bool IsIdentifier(const QString& word)
{
    if (word.isEmpty() || word[0].isDigit())
        return false;
    for (const QChar c : word)
        if (!(c.unicode() < 128 && (c.isLetterOrNumber() || c == '_')))
            return false;
    return true;
}

QString Quoted(QString text, QChar quote)
{
    text.replace(quote, QString(2, quote));
    return quote + text + quote;
}

QString Literal(const Value& value, bool isAccess)
{
    if (IsNull(value))
        return "null";
    if (std::holds_alternative<QDate>(value) || std::holds_alternative<Moment>(value))
        return isAccess ? '#' + TextOf(value) + '#' : '\'' + TextOf(value) + '\'';
    if (std::holds_alternative<QString>(value))
        return Quoted(TextOf(value), '\'');
    if (const auto* bytes = std::get_if<QByteArray>(&value))
        return "0x" + QString::fromLatin1(bytes->toHex());
    return TextOf(value);
}
} // namespace

Name::Name(const QString& word) : words((IsIdentifier(word) ? word : Quoted(word, '"')).toStdString()) {}

Sql& Sql::operator+=(const char* words)
{
    m_shape += words;
    return *this;
}

Sql& Sql::operator+=(const Name& name)
{
    m_shape += name.words;
    return *this;
}

Sql& Sql::operator+=(const Sql& piece)
{
    m_shape += piece.m_shape;
    m_values.insert(m_values.end(), piece.m_values.begin(), piece.m_values.end());
    return *this;
}

Sql& Sql::operator+=(Value value)
{
    if (auto* const text = std::get_if<QString>(&value))
        *text = WholeText(std::move(*text));
    m_shape += '?';
    m_values.push_back(std::move(value));
    return *this;
}

QString Sql::ProgramText(bool isAccess) const
{
    QString text;
    size_t value = 0;
    bool quoted = false;
    for (const QChar c : QString::fromStdString(m_shape)) {
        if (c == '\'')
            quoted = !quoted;
        if (c == '?' && !quoted)
            text += Literal(m_values.at(value++), isAccess);
        else
            text += c;
    }
    return text;
}

Sql InsertInto(const Name& table, const std::vector<Value>& values)
{
    Sql sql = Sql("insert into ") + table + " values(";
    const char* separator = "";
    for (const Value& value : values) {
        sql += separator;
        sql += value;
        separator = ",";
    }
    return sql + ")";
}
