"""Makes random golden cases: ten NC programs each, and the commands that read them."""
import math
import shlex

PROGRAMS_PER_CASE = 10  # half of them in each line format
PICTURES = ("emf", "svg", "png")

# Fields that affect the result of a program, with values at and near their limits.
SETTINGS = {
    "MaxFeed": "1 80 1000 2400 4999 12000", "PlungeFeed": "1 20 400 3000",
    "RapidFeed": "1000 5000 10000", "SafetyDistance": "0 0.5 1 3 5 20",
    "ToolDiameter": "0.5 6 10 63", "CornerMinAngle": "0 5 10 45 90 360",
    "CornerMaxRatio": "0 0.1 0.155 0.5 1", "SlopeMinAngle": "-300 0 10 30 90",
    "SlopeMaxRatio": "0 0.1 0.33 1", "ConCorChk": "0 1", "UpDownChk": "0 1 2",
    "FeedChgSmoothCheck": "0 1", "XyChgReduceCheck": "0 1", "FeedChgAng": "0 10 30 200",
    "CorWeight0": "0 0.8 1 2", "CorWeight30": "0.1 0.7", "CorWeight60": "0.3 1",
    "SideWeight0": "0.5 1", "SideWeight30": "0.7 0.05", "SideWeight60": "0.3 1",
    "SideCorRat": "0.2 1", "ZupZdown": "0.01 0.5 1 5", "Material": "KP4M SKD11 흑연",
    "RestartOn": "0 1", "RestartKind": "0 1 2 3 4 5", "RestartNumber": "-1 7 200",
    "RestartZMax": "5 0.25", "RestartX": "1.2345 -20", "RestartTolerance": "0.1 1.5",
    "DeleteM30": "0 1", "AfaEnabled": "0 1", "AfaByMaster": "0 1",
    "AfaMasterFile": r"c:\a c:\jobs\nc.mma", "WorkDir": r"c:\jobs d:\형상"}
CALCULATOR = {
    "toolDiameter": "0.09 3 10 63 ten", "toolLength": "20 50 300", "fluteLength": "0 10 90",
    "stepover": "0.05 1 5 12", "cutDepth": "0.05 2 10", "maxFeedRate": "1 900 100001",
    "maxSpindle": "100 6000 40000", "idlePower": "0 1.5", "ncPower": "3.05 7 20",
    "toolMaterial": "초경 하이스", "workMaterial": "KP4 흑연 알루미늄 wood", "fluteCount": "1 2 4 6 8",
    "speedPercent": "50 77 150", "feedPercent": "49 123", "highSpeedRough": "0 1"}
LINE_WORDS = ("M30 ON", "RT ON  1  12", "RT ON 3 20.5 -2", "RT ON 4 1 2.5 3", "RT OFF", "Afa ON",
              "Afa OFF", "TD 6.0", "SD 2.5", "CMIA 12", "CMAR 0.25", "SMIA 30", "SMAR x", "CCC ON",
              "ZUDC ON", "MAT KP4M", "MAF 2400", "AF 350", "CW 1 0.6", "SW 1.00 0.70 0.30",
              r"MMA c:\jobs\nc.mma", "FCS ON", "XYR ON", "KeyCode  G55 S900")
ODD_LINES = (
    "", "%", "(remark) X5", "X7 (remark)", "#100=2", "G4 X1.5", "G28 G91 Z0", "G90", "G1.0 X3", "X",
    "X-.5Y.", "G17 X 4", "Y2.5.5", "M30", "x1y2z-3f700", "G02", "G3 X1", "F", "F6000 X9", "/X8",
    "X0.12345678901234567890", "c X1", "\tX3 ;Y4", "(한글) X1", "N5 G91 X1 Z-0.2", "L X+", "CC X+1",
    "DR- X+3", "CR X+4 R-2 DR+", "C X+9 Y+9 DR+", "TOOL CALL 3 X1", "END X1",
    "G01 X11.111 Y22.222 Z-3.333 F1234 (" + "-" * 50 + ")", "G1 X5" + " " * 76 + "Y8 F90")


class ProgramWriter:
    """Writes one random program: runs of moves of one kind, with odd lines between them."""

    def __init__(self, rng, conversational):
        self.rng, self.conversational, self.incremental = rng, conversational, False
        self.at, self.lines, self.motion = [0.0, 0.0, 0.0], [], None

    def number(self, value):
        plus = "+" if self.conversational and value >= 0 else ""
        return plus + (f"{value:.3f}" if self.rng.random() < 0.8 else f"{value:.1f}")

    def move(self, motion, dx, dy, dz, extra=""):
        step = [dx, dy, dz]
        self.at = [a + d for a, d in zip(self.at, step)]
        values = step if self.incremental else self.at
        words = "".join(f"{axis}{self.number(v)} " for axis, v, d in zip("XYZ", values, step) if d)
        if self.rng.random() < 0.1:
            extra += f" F{self.rng.choice((50, 300, 800, 1500, 2001, 4999, 5000, 9999))}"
        if self.conversational:
            head = "L " if motion < 2 else "C "
            extra += (" DR-" if motion == 2 else " DR+") if motion > 1 else ""
        else:
            head = "" if motion == self.motion and motion < 2 else f"G{motion:02d} "
        self.motion = motion
        self.lines.append(head + words + extra)

    def turning(self):
        rng, heading = self.rng, self.rng.uniform(0, 6.28)
        length, turn = 10 ** rng.uniform(-1.5, 1.5), rng.choice((0.02, 0.3, 1.6, 3.1))
        climb = rng.choice((0, 0, 0.1, 1.5))
        for _ in range(rng.choice((3, 10, 30, 220))):
            heading += rng.uniform(-turn, turn)
            rise = length * rng.uniform(-climb, climb)
            self.move(1, length * math.cos(heading), length * math.sin(heading), rise)

    def lattice(self):
        for _ in range(self.rng.randint(2, 20)):
            self.move(1, *(self.rng.choice((0, 0, 1, -1, 5, -5)) for _ in range(3)))

    def arcs(self):
        rng = self.rng
        for _ in range(rng.randint(1, 6)):
            radius, start = 10 ** rng.uniform(-0.5, 1.5), rng.uniform(0, 6.28)
            i, j = -radius * math.cos(start), -radius * math.sin(start)
            end = start + rng.choice((0, 0.2, 1.57, 3.1, 5))
            dx, dy = i + radius * math.cos(end), j + radius * math.sin(end)
            dz = rng.choice((0, 0, -0.5))
            by_radius = f"R{self.number(rng.choice((1, -1, 0.3)) * radius)}"
            if self.conversational and rng.random() < 0.6:
                centre_x, centre_y = self.number(self.at[0] + i), self.number(self.at[1] + j)
                self.lines.append(f"CC X{centre_x} Y{centre_y}")
                by_radius = ""
            by_centre = f"I{self.number(i)} J{self.number(j)}"
            centre = by_radius if self.conversational or rng.random() < 0.4 else by_centre
            self.move(rng.choice((2, 3)), dx, dy, dz, centre)

    def approach(self):
        self.move(0, 0, 0, self.rng.uniform(1, 9), " F9999" if self.conversational else "")
        self.move(0, self.rng.uniform(-30, 30), self.rng.uniform(-30, 30), 0)
        self.move(1, 0, 0, self.rng.uniform(-9, 0), f" F{self.rng.choice((100, 300, 1000))}")

    def odd(self):
        self.lines += self.rng.choices(ODD_LINES, k=self.rng.randint(1, 4))

    def switch_increments(self):
        self.incremental = not self.incremental
        self.lines.append("G91" if self.incremental else "G90")

    def write(self):
        kinds = (self.turning, self.turning, self.lattice, self.arcs, self.arcs,
                 self.approach, self.approach, self.odd, self.switch_increments)
        for _ in range(self.rng.randint(1, 9)):
            self.rng.choice(kinds)()
        ending = self.rng.choice(("\n", "\r\n"))
        text = ending.join(self.lines) + self.rng.choice(("", ending, ending))
        return text.encode("cp949")


def settings(rng, fields, option="--set"):
    names = rng.sample(sorted(fields), rng.randint(1, 6))
    return " ".join(f"{option} {shlex.quote(f'{n}={rng.choice(fields[n].split())}')}" for n in names)


def make_case(folder, rng):
    """Makes a case of ten programs and the commands that read them."""
    jobs = folder / "home/drive_c/jobs"
    jobs.mkdir(parents=True)
    names = [f"p{i}.{'hnc' if i % 2 else 'nc'}" for i in range(PROGRAMS_PER_CASE)]
    for name in names:
        (jobs / name).write_bytes(ProgramWriter(rng, name.endswith("hnc")).write())
    lines = [rf"Dir c:\jobs FS {rng.randint(0, 9999)} " + " ".join(
        rng.sample(LINE_WORDS, rng.randint(2, len(LINE_WORDS)))) for _ in names]
    entries = [f"File {name}  {line}\r\n" for name, line in zip(names, lines)]
    for name in ("list.txt", "list.mcf"):
        (jobs / name).write_bytes("".join(rng.sample(entries, 6)).encode("cp949"))
    condition = "".join(f"{n} {rng.choice(v.split())}\r\n" for n, v in SETTINGS.items())
    (folder / "odd.afa").write_bytes(("a 8 b 2.5 c 15 d x e 20\n" + condition).encode("cp949"))

    cmd = ["config show"]
    for ending, form in (("nc", ""), ("hnc", " --set InputFileType=2")):
        files = [f"c:/jobs/{n}" for n in names if n.endswith("." + ending)]
        one, two, three = rng.sample(files, 3)
        every = " " + " ".join(files)
        master = f"c:/jobs/{ending}.mma"

        def sets():
            return settings(rng, SETTINGS) + form

        def view():
            return rng.choice((
                f"--view {rng.randint(1, 7)}", f"--view {rng.randint(1, 3)} --zoom 90,80,420,333",
                "--angles 30,-45,200 --scale 2.5", "--size 333x222 --hide-rapids --pan 5,-3"))
        cmd += [f"blocks{form}{every}", f"blocks --set IntNcdataFlg=1{form}{every}",
                f"blocks --afa{form}{every}",
                f"blocks --afa --explain {sets()}{every}", f"blocks --afa {sets()}{every}",
                f"blocks --afa --condition odd.afa {sets()}{every}", f"time{form}{every}",
                f"time --json{form}{every}", f"time --json --no-afa {sets()}{every}",
                f"time --json {sets()}{every}", f"info --afa {sets()} {one}",
                f"info --json {sets()} {two}", f"draw {view()}{form} {one}",
                f"draw --afa {view()} {sets()} {two}", f"draw --as-picture {view()} {sets()} {three}",
                f"project {view()} --fit {one} 0,0,0 10,-20,5.5",
                f"picture {view()} --afa {sets()} -o {ending}.{rng.choice(PICTURES)} {two}",
                f"master build{form} --tool-diameter {rng.choice((1, 4, 10))} --allowance "
                f"{rng.choice((0, 0.3))} --tolerance {rng.choice((1, 2.5))} -o {master} {three}",
                f"master dump {master}", f"master show {master}",
                f"master lookup {master} 5 0,0,0 3.5,2,-1 -4,8,0",
                f"time --json --master {master} {sets()} {one} {two}",
                f"option-line build {sets()} --spindle {rng.randint(0, 9000)} {one}"]
    cmd += [f"option-line parse {settings(rng, SETTINGS)} {shlex.quote(line)}" for line in lines[:4]]
    cmd += [f"condition write {settings(rng, SETTINGS)} --spindle {rng.randint(0, 9999)} out.afa",
            "condition show out.afa", "condition show odd.afa"]
    cmd += [f"getfeed --diameter {rng.choice((1, 8, 25))} {settings(rng, CALCULATOR, '--change')}"
            f"{rng.choice(('', ' --accept'))}" for _ in range(4)]
    cmd += ["run c:/jobs/list.txt", f"run --json {settings(rng, SETTINGS)} c:/jobs/list.mcf",
            "run --info --set InputFileType=2 --report c:/week.tvx --list c:/week.mcf c:/jobs/list.txt",
            "run --pictures --list-copy home/drive_c/copy.mcf c:/jobs/list.mcf"]
    (folder / "cmd").write_text("".join(f"tvx-cli {line}\n" for line in cmd), encoding="utf-8")
