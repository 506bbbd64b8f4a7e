"""Starts servers of databases for a test, each with its files in a folder of its own and no port on the network."""
import getpass
import os
import pwd
import re
import shutil
import subprocess
import tempfile
import time
from pathlib import Path

PASSWORD = "gull; {wing}"


class NotThere(Exception):
    """The server is not installed or does not start. The text is the reason."""


def drivers():
    told = subprocess.run(["odbcinst", "-q", "-d"], capture_output=True, text=True, check=False) \
        if shutil.which("odbcinst") else None
    return told.stdout if told else ""


def need_driver(name):
    if f"[{name}]" not in drivers():
        raise NotThere(f"the driver '{name}' is not installed")


def outside_texts(change, statements):
    """Changes the text outside of quotation marks."""
    parts = statements.split("'")
    return "'".join(part if number % 2 else change(part) for number, part in enumerate(parts))


def with_keys(statements):
    """Adds the names of the columns to which foreign keys refer, since some servers require them."""
    return re.sub(r"REFERENCES (\w+)", lambda found: found[0] + {
        "Customers": "(CustomerID)", "Employees": "(EmployeeID)", "Orders": "(OrderNumber)", "Products": "(ProductID)",
    }.get(found[1], ""), statements)


def ticks_of(process):
    """Returns the processor time of a process and of its children that have ended."""
    try:
        fields = Path(f"/proc/{process}/stat").read_text(encoding="ascii").rpartition(")")[2].split()
    except FileNotFoundError:
        return 0
    return sum(map(int, fields[11:15]))


class Server:
    """A server that runs until it is stopped. Its files belong to the user who may run it."""

    def __init__(self, user=None):
        self.user = user
        self.folder = Path(tempfile.mkdtemp(prefix="mergeloom-server-"))
        if user:
            shutil.chown(self.folder, user)

    def command(self, *arguments):
        return ["runuser", "-u", self.user, "--", *map(str, arguments)] if self.user else [*map(str, arguments)]

    def run(self, *arguments, **more):
        done = subprocess.run(self.command(*arguments), capture_output=True, text=True, check=False, cwd=self.folder, **more)
        if done.returncode != 0:
            raise NotThere(f"{Path(arguments[0]).name}: {done.stderr.strip()}")
        return done.stdout

    def process_number(self):
        """Returns the number of the process that has started the others of the server."""
        raise NotImplementedError

    def processor_seconds(self):
        """Returns the processor time of the server's processes until now, without those that are just ending."""
        number = self.process_number()
        children = Path(f"/proc/{number}/task/{number}/children").read_text(encoding="ascii").split()
        return sum(ticks_of(process) for process in [number, *children]) / os.sysconf("SC_CLK_TCK")

    def clean(self):
        shutil.rmtree(self.folder, ignore_errors=True)


class PostgreSql(Server):
    """PostgreSQL, which refuses to run as root and then runs as the user postgres."""

    def __init__(self):
        need_driver("PostgreSQL Unicode")
        homes = sorted(Path("/usr/lib/postgresql").glob("*/bin/initdb"))
        if not homes:
            raise NotThere("PostgreSQL is not installed")
        users = [entry.pw_name for entry in pwd.getpwall()]
        if os.geteuid() == 0 and "postgres" not in users:
            raise NotThere("PostgreSQL does not run as root, and there is no user postgres")
        super().__init__("postgres" if os.geteuid() == 0 else None)
        self.home = homes[-1].parent
        try:
            (self.folder / "word").write_text(PASSWORD)
            (self.folder / "word").chmod(0o644)
            self.run(self.home / "initdb", "-D", self.folder / "data", "-U", "clerk", "-A", "scram-sha-256", "--no-sync",
                     "-E", "UTF8", "--locale=C", "--pwfile", self.folder / "word")
            self.run(self.home / "pg_ctl", "-D", self.folder / "data", "-l", self.folder / "log", "-w", "-o",
                     f"-c listen_addresses= -c unix_socket_directories={self.folder} -c fsync=off", "start")
        except NotThere:
            self.clean()
            raise
        self.source = f"odbc:DRIVER=PostgreSQL Unicode;Servername={self.folder};Port=5432;Database=postgres;UID=clerk"

    def execute(self, statements):
        self.run(self.home / "psql", "-h", self.folder, "-U", "clerk", "-v", "ON_ERROR_STOP=1", "-q", "postgres",
                 input=statements, env={**os.environ, "PGPASSWORD": PASSWORD})

    def process_number(self):
        return int((self.folder / "data" / "postmaster.pid").read_text(encoding="ascii").splitlines()[0])

    def load(self, statements):
        """Keeps upper and lower case in names, and accepts numbers as booleans."""
        names = outside_texts(lambda part: re.sub(r"\b[A-Z][a-z]\w*", r'"\g<0>"', part), with_keys(statements))
        self.execute("UPDATE pg_cast SET castcontext = 'a' WHERE castsource = 'int'::regtype AND casttarget = "
                     "'bool'::regtype;\n" + names)

    def stop(self):
        self.run(self.home / "pg_ctl", "-D", self.folder / "data", "-m", "immediate", "-w", "stop")
        self.clean()


class MariaDb(Server):
    def __init__(self):
        need_driver("MariaDB Unicode")
        self.program = shutil.which("mariadbd", path=os.environ.get("PATH", "") + ":/usr/sbin")
        if not self.program or not shutil.which("mariadb-install-db"):
            raise NotThere("MariaDB is not installed")
        super().__init__()
        self.socket, data = self.folder / "socket", self.folder / "data"
        self.process = None
        try:
            self.run("mariadb-install-db", "--no-defaults", f"--datadir={data}", f"--user={getpass.getuser()}",
                     "--auth-root-authentication-method=normal", "--skip-test-db")
            with (self.folder / "log").open("w") as log:
                self.process = subprocess.Popen(
                    [self.program, "--no-defaults", f"--datadir={data}", f"--socket={self.socket}", "--skip-networking",
                     f"--user={getpass.getuser()}", f"--pid-file={self.folder / 'pid'}"], stdout=log, stderr=log)
            while not self.answers():
                if self.process.poll() is not None:
                    raise NotThere("MariaDB ended: " + (self.folder / "log").read_text()[-300:])
                time.sleep(0.05)
        except NotThere:
            self.clean()
            raise
        self.execute(f"CREATE DATABASE shop CHARACTER SET utf8mb4; CREATE USER clerk@localhost IDENTIFIED BY '{PASSWORD}';"
                     "GRANT ALL ON shop.* TO clerk@localhost;", "mysql")
        self.source = f"odbc:DRIVER=MariaDB Unicode;SOCKET={self.socket};DATABASE=shop;UID=clerk"

    def answers(self):
        asked = subprocess.run(["mariadb-admin", "--no-defaults", f"--socket={self.socket}", "-u", "root", "ping"],
                               capture_output=True, check=False)
        return asked.returncode == 0

    def execute(self, statements, database="shop"):
        self.run("mariadb", "--no-defaults", f"--socket={self.socket}", "-u", "root", "--default-character-set=utf8mb4",
                 database, input=statements)

    def process_number(self):
        return self.process.pid

    def load(self, statements):
        self.execute(with_keys(statements))

    def stop(self):
        self.process.terminate()
        self.process.wait()
        self.clean()
