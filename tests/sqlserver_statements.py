"""Reads statements as SQL Server would, as far as that is known without one.

usage: sqlserver_statements.py SCHEMA STATEMENTS, one statement a line, with "?" for each value.

What it finds: a statement that is no T-SQL by the grammar of sqlglot; the words of other databases, which that grammar
lets pass; a table or column that the schema does not have; a derived table without a name; an order inside one without
a top; a column beside an aggregate that is not grouped by; an insert with too few or too many values; a text in Chinese
without its N. It looks for one of each in statements of its own first.

What it cannot find: whether types meet (a text compared with a number is converted there, or fails when it runs), how
the server's collation compares and sorts, what its optimizer makes of a statement, how FreeTDS or the maker's driver
binds the values, and anything about locks and units. None of this has run on a SQL Server.
"""

import re
import sys

import sqlglot
from sqlglot import ErrorLevel, exp

FOREIGN_WORDS = re.compile(r"\b(limit|ilike|nulls|escape|cint|any_like|glob|pragma|returning|offset)\b", re.IGNORECASE)
STATEMENT = re.compile(r"(select|insert|update|delete)\b", re.IGNORECASE)
LITERAL = re.compile(r"(N?)'((?:[^']|'')*)'")
FUNCTIONS = {"max", "min", "sum", "count", "avg", "replace", "cast", "convert"}
# sqlglot does not know what follows the columns of an index.
INCLUDED = re.compile(r" include\([^)]*\);?$")


# One of each fault.
FAULTY = [
    "select Code from TabWare limit 1",
    "select Code from TabWare where Code ilike ?",
    "select Code from TabWare where Name like '商品'",
    "select Cod from TabWare",
    "select Code from TabNothing",
    "select * from (select Code from TabWare)",
    "select * from (select Code from TabWare order by Code) as t",
    "select Code,max(Name) from TabWare",
    "select nextval(Code) from TabWare",
    "select Code fro TabWare where",
    "update TabWare,TabWareType set TabWare.Name=1",
    "insert into TabMoneyType values(?,?)",
    "select Code from TabWare where (Code=?",
]


def read_schema(path):
    tables = {}
    for line in open(path, encoding="utf-8"):
        statement = INCLUDED.sub("", line.strip().rstrip(";"))
        tree = sqlglot.parse_one(statement, read="tsql", error_level=ErrorLevel.RAISE)
        if isinstance(tree, exp.Create) and tree.args.get("kind", "").upper() == "TABLE":
            name = tree.find(exp.Table).name.lower()
            tables[name] = {column.name.lower() for column in tree.find_all(exp.ColumnDef)}
    return tables


def word_faults(statement):
    for mark, text in LITERAL.findall(statement):
        if not mark and not text.isascii():
            yield f"a text without N: '{text}'"
    for word in FOREIGN_WORDS.findall(LITERAL.sub("''", statement)):
        yield f"a word of another database: {word}"


def name_faults(tree, tables):
    used = [table.name.lower() for table in tree.find_all(exp.Table)]
    for name in used:
        if name not in tables:
            yield f"no table {name}"
    columns = set().union(*(tables.get(name, set()) for name in used))
    made = {alias.alias.lower() for alias in tree.find_all(exp.Alias)}
    for column in tree.find_all(exp.Column):
        if column.name.lower() not in columns | made:
            yield f"no column {column.sql()}"


def form_faults(tree):
    for subquery in tree.find_all(exp.Subquery):
        if isinstance(subquery.parent, (exp.From, exp.Join)) and not subquery.alias:
            yield "a derived table without a name"
        inner = subquery.this
        if inner.args.get("order") and not inner.args.get("limit"):
            yield "an order inside a derived table without a top"
    for select in tree.find_all(exp.Select):
        items = select.expressions
        sums = [item for item in items if item.find(exp.AggFunc)]
        bare = [item for item in items if item.find(exp.Column, exp.Star) and not item.find(exp.AggFunc)]
        if sums and bare and not select.args.get("group"):
            yield "a column beside an aggregate"
    for function in tree.find_all(exp.Anonymous):
        if function.name.lower() not in FUNCTIONS:
            yield f"an unknown function {function.name}"


def insert_faults(tree, tables):
    for insert in tree.find_all(exp.Insert):
        rows = insert.find(exp.Values)
        if isinstance(insert.this, exp.Table) and rows:
            wanted = len(tables.get(insert.this.name.lower(), ()))
            for row in rows.expressions:
                if len(row.expressions) != wanted:
                    yield f"{len(row.expressions)} values for {wanted} columns"


def faults(statement, tables):
    yield from word_faults(statement)
    try:
        trees = sqlglot.parse(statement, read="tsql", error_level=ErrorLevel.RAISE)
    except sqlglot.errors.ParseError as error:
        yield str(error).splitlines()[0]
        return
    if len(trees) != 1:
        yield "more than one statement"
    for tree in trees:
        yield from name_faults(tree, tables)
        yield from form_faults(tree)
        yield from insert_faults(tree, tables)


def main(schema, path):
    tables = read_schema(schema)
    for statement in FAULTY:
        if not any(faults(statement, tables)):
            print(f"a fault is not found: {statement}")
            return 1
    # The tests themselves also ask for plans and drop tables.
    statements = [line for line in map(str.strip, open(path, encoding="utf-8")) if STATEMENT.match(line)]
    found = 0
    for statement in statements:
        for fault in faults(statement, tables):
            found += 1
            print(f"{fault}\n    {statement}")
    print(f"{len(statements)} shapes of statements on {len(tables)} tables, {found} faults")
    return 0 if statements and tables and not found else 1


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:]))
