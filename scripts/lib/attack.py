"""What scripts/attack does: attack.py PROGRAMS FOLDER SECONDS SEED [ATTACK TO LEAVE OUT]... See there."""

import functools
import io
import os
import random
import resource
import shutil
import signal
import subprocess
import sys
import time
import zipfile

PROGRAMS, FOLDER, SECONDS, SEED = os.path.abspath(sys.argv[1]), sys.argv[2], min(int(sys.argv[3]), 600), int(sys.argv[4])
PROGRAM, TOOLS = os.path.join(PROGRAMS, "pedigreewatch"), os.path.join(PROGRAMS, "pedigreewatch-tools")
LONGEST_RUN = 60
random.seed(SEED)

EXPORT, BOOK, RULES = "dogs.csv", "dogs.xlsx", "forecast.ini"
STEER = "\n".join(["Village dogs", "dogs.txt", ";", "n", "dd-mm-yyyy", "dog", "m", "en", "y", "2", "North", "South", "0"]) + "\n"


def population(generations):
    """A herd in which parents are of the year before; the version is known by how many years it has."""
    lines = ["id;sire;dam;sex;birthdate;subpopulation"]
    size = 60
    for year in range(generations):
        for k in range(size):
            n = year * size + k
            parents = (f"a{n - size - k + (k * 7) % size // 2 * 2}", f"a{n - size - k + (k * 11) % size // 2 * 2 + 1}")
            sire, dam = parents if year else ("", "")
            lines.append(f"a{n};{sire};{dam};{'mf'[k % 2]};{k % 28 + 1:02}-05-{1990 + year};{('North', 'South')[k % 3 == 0]}")
    return ("\n".join(lines) + "\n").encode()


@functools.cache  # a workbook tells when it was packed
def workbook_of(table):
    """The table as a workbook that an office program might have saved."""
    main = 'xmlns="http://schemas.openxmlformats.org/spreadsheetml/2006/main"'
    package = "http://schemas.openxmlformats.org/package/2006/"
    office = "http://schemas.openxmlformats.org/officeDocument/2006/relationships"
    rows = "".join(
        "<row>" + "".join(f'<c t="inlineStr"><is><t>{cell}</t></is></c>' for cell in line.split(";")) + "</row>"
        for line in table.decode().splitlines())
    parts = {
        "[Content_Types].xml": f'<Types xmlns="{package}content-types"><Default Extension="xml" ContentType='
                               '"application/xml"/><Default Extension="rels" ContentType='
                               '"application/vnd.openxmlformats-package.relationships+xml"/></Types>',
        "_rels/.rels": f'<Relationships xmlns="{package}relationships"><Relationship Id="a" Type="{office}/officeDocument" '
                       'Target="xl/workbook.xml"/></Relationships>',
        "xl/workbook.xml": f'<workbook {main} xmlns:r="{office}"><sheets><sheet name="dogs" sheetId="1" r:id="b"/></sheets>'
                           '</workbook>',
        "xl/_rels/workbook.xml.rels": f'<Relationships xmlns="{package}relationships"><Relationship Id="b" '
                                      f'Type="{office}/worksheet" Target="worksheets/sheet1.xml"/></Relationships>',
        "xl/worksheets/sheet1.xml": f"<worksheet {main}><sheetData>{rows}</sheetData></worksheet>",
    }
    packed = io.BytesIO()
    with zipfile.ZipFile(packed, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, text in parts.items():
            archive.writestr(name, '<?xml version="1.0" encoding="UTF-8"?>' + text)
    return packed.getvalue()


OLD, NEW = population(18), population(25)
PREPARED = ["--species", "dog", "--force", "--subpopulations", "all"]
SCENARIO = b"[at most two litters]\nmost-litters-a-year = 2\n"

JOBS = {
    "report": [PROGRAM],
    "prepare": [TOOLS, "prepare", EXPORT] + PREPARED,
    "prepare a workbook": [TOOLS, "prepare", BOOK] + PREPARED,
    "check": [TOOLS, "check", "--today", "2026-01-01"],
    "check, workbook": [TOOLS, "check", "--today", "2026-01-01", "--workbook"],
    "page": [TOOLS, "page"],
    "tables": [TOOLS, "tables"],
    "tables, workbook": [TOOLS, "tables", "--workbook"],
    "matings": [TOOLS, "matings", "--best", "3"],
    "animal": [TOOLS, "animal", "a900"],
    "plan": [TOOLS, "plan", "--matings", "20"],
    "plan, workbook": [TOOLS, "plan", "--matings", "20", "--workbook"],
    "forecast": [TOOLS, "forecast", "--rules", RULES, "--replicates", "4", "--years", "5"],
}
# A check ends with 1 when it finds something.
FINE = {job: {0, 1} if job.startswith("check") else {0} for job in JOBS}


def inputs_of(job, data):
    """What the job reads: first the file with the animals."""
    if job == "prepare":
        return {EXPORT: data}
    if job == "prepare a workbook":
        return {BOOK: workbook_of(data)}
    inputs = {"dogs.txt": data, "pedigreewatch.ini": STEER.encode()}
    if job == "forecast":
        inputs[RULES] = SCENARIO
    return inputs


def animals_of(job):
    return next(iter(inputs_of(job, NEW)))


def put(folder, files):
    os.makedirs(folder, exist_ok=True)
    for name, content in files.items():
        with open(os.path.join(folder, name), "wb") as file:
            file.write(content)


def read(folder):
    files = {}
    for name in sorted(os.listdir(folder)):
        path = os.path.join(folder, name)
        if os.path.islink(path):
            files[name] = "link to " + os.readlink(path)
        elif os.path.isfile(path):
            with open(path, "rb") as file:
                files[name] = file.read()
        else:
            files[name] = "no file"
    return files


def start(job, folder, limits=(), stdout=subprocess.DEVNULL):
    def set_limits():
        for kind, value in limits:
            resource.setrlimit(kind, (value, value))

    return subprocess.Popen(JOBS[job], cwd=folder, stdin=subprocess.DEVNULL, stdout=stdout, stderr=subprocess.PIPE,
                            preexec_fn=set_limits)


def finish(process):
    """The exit status and what was said on standard error; None for a run without an end."""
    try:
        said = process.communicate(timeout=LONGEST_RUN)[1]
        return process.returncode, said
    except subprocess.TimeoutExpired:
        process.kill()
        process.communicate()
        return None, b""


def results_of(job, data):
    folder = os.path.join(FOLDER, "made", job)
    put(folder, inputs_of(job, data))
    status, said = finish(start(job, folder))
    if status not in FINE[job]:
        sys.exit(f"attack: {job} does not run: {status} {said.decode(errors='replace')}")
    made = {n: b for n, b in read(folder).items() if n not in inputs_of(job, data)}
    shutil.rmtree(folder)
    return made


OLD_RESULTS = {job: results_of(job, OLD) for job in JOBS}
NEW_RESULTS = {job: results_of(job, NEW) for job in JOBS}


class Counts:
    def __init__(self):
        self.runs = self.new = self.old = self.faults = 0


counts, faults = {}, []


def blame(kind, job, what):
    counts[kind].faults += 1
    faults.append(f"{kind}, {job}: {what}")


def judge(kind, job, folder, status, said, before=None):
    """Whether the older results stand or the new ones, all of one kind, and nothing else; and what was said."""
    count = counts[kind]
    count.runs += 1
    data_now = NEW
    after = read(folder)
    inputs = inputs_of(job, data_now)
    made = {n: b for n, b in after.items() if n not in inputs}
    if status is None:
        blame(kind, job, f"no end within {LONGEST_RUN} s")
    elif status < 0 and -status in (signal.SIGSEGV, signal.SIGABRT, signal.SIGBUS, signal.SIGFPE, signal.SIGILL):
        blame(kind, job, f"crashed with signal {-status}: {said.decode(errors='replace')[:200]}")
    elif any(after.get(n) != b for n, b in inputs.items()):
        blame(kind, job, "an input file was changed")
    elif made == NEW_RESULTS[job]:
        count.new += 1
        if status not in FINE[job] and not said:
            blame(kind, job, f"exit status {status} without a word")
    elif made == (OLD_RESULTS[job] if before is None else before):
        count.old += 1
        if status in FINE[job] and status == 0:
            blame(kind, job, "exit status 0 without the new results")
        elif status > 0 and not said:
            blame(kind, job, f"exit status {status} without a word")
    else:
        expected = OLD_RESULTS[job] if before is None else before
        odd = sorted(n for n in set(made) | set(expected)
                     if made.get(n) != expected.get(n) and made.get(n) != NEW_RESULTS[job].get(n))
        blame(kind, job, f"exit status {status}, neither old nor new: {odd or 'a mixture'}; {said.decode(errors='replace')[:200]}")


def fresh(job, extra=None):
    folder = os.path.join(FOLDER, "run")
    shutil.rmtree(folder, ignore_errors=True)
    put(folder, {**inputs_of(job, NEW), **OLD_RESULTS[job], **(extra or {})})
    return folder


durations = {}


def duration(job):
    if job not in durations:
        folder, begin = fresh(job), time.monotonic()
        finish(start(job, folder))
        durations[job] = time.monotonic() - begin
    return durations[job]


def attack_with_signal(kind, job):
    longest = duration(job)  # a run of its own, before this one has its folder
    folder = fresh(job)
    process = start(job, folder)
    time.sleep(random.uniform(0, 1.1 * longest))
    if process.poll() is None:
        process.send_signal(random.choice([signal.SIGHUP, signal.SIGINT, signal.SIGTERM]))
    judge(kind, job, folder, *finish(process))


def attack_with_kill(kind, job):
    longest = duration(job)  # a run of its own, before this one has its folder
    folder = fresh(job)
    process = start(job, folder)
    time.sleep(random.uniform(0, 1.1 * longest))
    if process.poll() is None:
        process.kill()
    finish(process)
    # What it left is cleared away by the next run.
    judge(kind, job, folder, *finish(start(job, folder)))


def attack_with_full_disk(kind, job):
    folder = os.path.join(FOLDER, "disk")
    os.makedirs(folder, exist_ok=True)
    files = {**inputs_of(job, NEW), **OLD_RESULTS[job]}
    pages = sum((len(b) + 4095) // 4096 for b in files.values()) + len(files)
    room = random.randint(0, 1 + sum(len(b) // 4096 + 1 for b in NEW_RESULTS[job].values()))
    subprocess.run(["mount", "-t", "tmpfs", "-o", f"size={4096 * (pages + room)}", "none", folder], check=True)
    try:
        put(folder, files)
        judge(kind, job, folder, *finish(start(job, folder)))
    finally:
        subprocess.run(["umount", folder], check=True)


def attack_with_file_limit(kind, job):
    folder = fresh(job)
    largest = max(len(b) for b in NEW_RESULTS[job].values())
    judge(kind, job, folder, *finish(start(job, folder, [(resource.RLIMIT_FSIZE, random.randint(0, largest))],
                                           subprocess.DEVNULL)))


def attack_with_little_memory(kind, job):
    folder = fresh(job)
    room = random.randint(7_000_000, 40_000_000)
    judge(kind, job, folder, *finish(start(job, folder, [(resource.RLIMIT_AS, room)])))


def attack_with_few_files(kind, job):
    folder = fresh(job)
    judge(kind, job, folder, *finish(start(job, folder, [(resource.RLIMIT_NOFILE, random.randint(4, 14))])))


def attack_with_odd_output(kind, job):
    folder = fresh(job)
    name = random.choice(sorted(OLD_RESULTS[job]))
    path = os.path.join(folder, name)
    os.remove(path)
    odd = random.choice(["folder", "pipe", "link to nothing", "link to the data"])
    if odd == "folder":
        os.mkdir(path)
    elif odd == "pipe":
        os.mkfifo(path)
    elif odd == "link to nothing":
        os.symlink("nothing", path)
    else:
        os.symlink(animals_of(job), path)
    if job == "report" and odd in ("pipe", "link to nothing"):
        return  # these it writes to, as it is told
    before = {n: b for n, b in read(folder).items() if n not in inputs_of(job, NEW)}
    status, said = finish(start(job, folder))
    judge(kind, job, folder, status, said, before)
    if status == 0:
        blame(kind, job, f"a {odd} was replaced")


def attack_with_lost_console(kind, job):
    folder = fresh(job)
    if random.random() < 0.5:
        with open("/dev/full", "wb") as full:
            status, said = finish(start(job, folder, (), full))
    else:
        reader, writer = os.pipe()
        os.close(reader)
        process = start(job, folder, (), writer)
        os.close(writer)
        status, said = finish(process)
    judge(kind, job, folder, status, said)
    if status == 0:
        blame(kind, job, "nobody was told that the console is lost")


def attack_with_several(kind, job):
    folder = fresh(job)
    processes = [start(job, folder) for _ in range(random.choice([2, 3]))]
    ends = [finish(process) for process in processes]
    for status, said in ends:
        judge(kind, job, folder, status, said)


def attack_with_changing_input(kind, job):
    longest = duration(job)  # a run of its own, before this one has its folder
    folder = fresh(job)
    name = os.path.join(folder, animals_of(job))
    process = start(job, folder)
    time.sleep(random.uniform(0, longest))
    with open(name, "ab") as file:
        file.write(b"z;;;m;01-05-2014;North\n")
    status, said = finish(process)
    with open(name, "wb") as file:
        file.write(inputs_of(job, NEW)[animals_of(job)])
    made = {n: b for n, b in read(folder).items() if n not in inputs_of(job, NEW)}
    counts[kind].runs += 1
    # Changed before it was opened or after it was read the run is whole, of the one input or the other.
    if status in FINE[job]:
        counts[kind].new += 1
        if set(made) != set(NEW_RESULTS[job]):
            blame(kind, job, f"files: {sorted(made)}")
    elif made == OLD_RESULTS[job]:
        counts[kind].old += 1
        if not said:
            blame(kind, job, "a changed input without a word")
    else:
        blame(kind, job, f"exit status {status}, the older results do not stand: {said.decode(errors='replace')[:200]}")


ATTACKS = {
    "signals": attack_with_signal,
    "kills, and the next run": attack_with_kill,
    "a full disk": attack_with_full_disk,
    "limits of file size": attack_with_file_limit,
    "limits of memory": attack_with_little_memory,
    "limits of open files": attack_with_few_files,
    "odd outputs": attack_with_odd_output,
    "a lost console": attack_with_lost_console,
    "two or three at once": attack_with_several,
    "inputs that change": attack_with_changing_input,
}


def can_mount():
    folder = os.path.join(FOLDER, "probe")
    os.makedirs(folder, exist_ok=True)
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=4096", "none", folder], stderr=subprocess.DEVNULL).returncode:
        return False
    return subprocess.run(["umount", folder]).returncode == 0


end = time.monotonic() + SECONDS
skipped, left_out = [], []
if not can_mount():
    del ATTACKS["a full disk"]
    skipped.append("a full disk")
for kind in sys.argv[5:]:
    if kind not in ATTACKS:
        sys.exit(f"attack: {kind}: there is no such attack, they are: {', '.join(ATTACKS)}")
    del ATTACKS[kind]
    left_out.append(kind)
for kind in ATTACKS:
    counts[kind] = Counts()
while ATTACKS and time.monotonic() < end:
    for kind, attack in ATTACKS.items():
        if time.monotonic() < end:
            attack(kind, random.choice(sorted(JOBS)))

print(f"{'attack':<26}{'runs':>7}{'new results':>13}{'old results':>13}{'faults':>8}")
for kind, count in counts.items():
    print(f"{kind:<26}{count.runs:>7}{count.new:>13}{count.old:>13}{count.faults:>8}")
for kind in skipped:
    print(f"{kind:<26}   not possible here: no mounts")
for kind in left_out:
    print(f"{kind:<26}   left out, as it was asked for")
for fault in faults[:40]:
    print("attack: " + fault)
runs = sum(count.runs for count in counts.values())
if faults:
    print(f"attack: {len(faults)} faults in {runs} runs")
    sys.exit(1)
print(f"attack: nothing lost in {runs} runs")
