"""Servers for tests of the command line, and the sample database in each of them."""
import os
import pathlib
import sqlite3
import subprocess

SCRIPT = pathlib.Path(__file__).resolve().parents[1] / "support" / "database_server"

# What a type of the sample database is called elsewhere.
TYPES = {
    "postgres": {"DOUBLE": "double precision", "SINGLE": "real", "DATETIME": "timestamp", "MEMO": "text",
                 "CURRENCY": "numeric(19,4)", "TINYINT": "smallint"},
    "mariadb": {"SINGLE": "float", "MEMO": "text", "CURRENCY": "decimal(19,4)", "BOOLEAN": "bit(1)",
                "TINYINT": "tinyint unsigned"},
}


class Server:
    """Started when it is made; `string` is its connection string without the password. Raises LookupError, with the
    reason, where it is not installed."""

    def __init__(self, kind):
        done = subprocess.run([SCRIPT, "start", kind, str(os.getpid())], capture_output=True, text=True)
        if done.returncode != 0:
            raise LookupError((done.stdout + done.stderr).strip())
        self.kind = kind
        self.folder, full = done.stdout.splitlines()
        begin = full.index("PWD={")
        end = full.index("};", begin) + 2
        self.string = "ODBC;" + full[:begin] + full[end:]
        self.password = full[begin + 5:end - 2].replace("}}", "}")

    def stop(self):
        subprocess.run([SCRIPT, "stop", self.folder], check=True)

    def execute(self, sql):
        subprocess.run([SCRIPT, "sql", self.folder], input=sql.encode(), check=True)

    def process(self):
        return int(subprocess.run([SCRIPT, "pid", self.folder], capture_output=True, check=True).stdout)

    def children(self):
        """The processes of the server that serve a connection: PostgreSQL has one for each."""
        pids = []
        for path in pathlib.Path("/proc").glob("[0-9]*/stat"):
            try:
                fields = path.read_text().rpartition(")")[2].split()
                if int(fields[1]) == self.process() and b"postgres: zk sklad" in (path.parent / "cmdline").read_bytes():
                    pids.append(int(path.parent.name))
            except OSError:
                pass  # it has ended meanwhile
        return pids

    def literal(self, value, declared):
        if value is None:
            return "NULL"
        if declared == "BOOLEAN":
            return ("true" if value else "false") if self.kind == "postgres" else f"b'{value}'"
        if isinstance(value, str):
            text = value.replace("'", "''")
            if self.kind == "mariadb":
                text = text.replace("\\", "\\\\").replace("\r", "\\r").replace("\n", "\\n")
            return f"'{text}'"
        return repr(value)

    def copy(self, database):
        """Copies the tables of an SQLite file."""
        statements = []
        with sqlite3.connect(database) as source:
            for (table,) in source.execute("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name").fetchall():
                columns = source.execute(f"PRAGMA table_info({table})").fetchall()
                types = [self.type_of(column[2]) for column in columns]
                declared = [f"{column[1]} {kind}" for column, kind in zip(columns, types)]
                statements.append(f"CREATE TABLE {table} ({', '.join(declared)});")
                for row in source.execute(f"SELECT * FROM {table}"):
                    values = [self.literal(value, column[2]) for value, column in zip(row, columns)]
                    statements.append(f"INSERT INTO {table} VALUES ({', '.join(values)});")
        self.execute("BEGIN;\n" + "\n".join(statements) + "\nCOMMIT;\n")

    def type_of(self, declared):
        name = declared.partition("(")[0]
        return TYPES[self.kind].get(name, declared)
