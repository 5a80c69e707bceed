#pragma once

// A statement: the system's own words with typed values between them. Words are string literals; everything that
// comes from outside is a value or a checked name, so no text can change what a statement means.

#include "database/value.h"

#include <string>
#include <vector>

/// A table or column that is known only when the program runs. A word that is no identifier is quoted, so it can
/// only ever name a table that does not exist.
struct Name
{
    explicit Name(const QString& word);
    std::string words;
};

class Sql
{
public:
    Sql() = default;
    explicit Sql(const char* words) : m_shape(words) {}

    /// More words of the statement.
    Sql& operator+=(const char* words);
    Sql& operator+=(const Name& name);
    /// Another piece of a statement, words and values.
    Sql& operator+=(const Sql& piece);
    /// A value; the one place where a text becomes one, and is made whole for that.
    Sql& operator+=(Value value);
    Sql& operator+=(const QString& text) { return *this += Value(text); }
    Sql& operator+=(double number) { return *this += Value(number); }
    Sql& operator+=(int number) { return *this += Value(qint64(number)); }
    Sql& operator+=(qint64 number) { return *this += Value(number); }
    Sql& operator+=(Currency money) { return *this += Value(money); }
    Sql& operator+=(const QDate& day) { return *this += Value(day); }
    Sql& operator+=(const Moment& moment) { return *this += Value(moment); }

    template <typename Piece>
    friend Sql operator+(Sql left, const Piece& right)
    {
        left += right;
        return left;
    }

    bool isEmpty() const { return m_shape.empty(); }
    /// The words in UTF-8 with "?" for each value.
    const std::string& shape() const { return m_shape; }
    const std::vector<Value>& values() const { return m_values; }
    /// The statement as program text: dates as #2023-02-08# for Access or '2023-02-08' otherwise, a quote inside a
    /// text doubled.
    QString ProgramText(bool isAccess) const;

private:
    std::string m_shape;
    std::vector<Value> m_values;
};

/// "insert into T values(..)", the nth value going to the nth column.
Sql InsertInto(const Name& table, const std::vector<Value>& values);
