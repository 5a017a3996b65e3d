"""One run of one program: how long, how much processor, how much memory."""
import dataclasses
import os
import subprocess


@dataclasses.dataclass
class Cost:
    wall: float    # seconds
    cpu: float     # seconds, user and system, all threads and children
    peak: float    # MiB resident, of the largest process


class Bench:
    """Starts programs in surroundings of their own: fresh settings, work file in the target folder, no sound."""

    def __init__(self, programs, target):
        self.programs = programs
        self.target = target
        self.figures = os.path.join(target, "figures")
        config, runtime = os.path.join(target, "config"), os.path.join(target, "runtime")
        os.makedirs(config, exist_ok=True)
        os.makedirs(runtime, mode=0o700, exist_ok=True)
        self.environment = dict(
            os.environ, XDG_CONFIG_HOME=config, XDG_RUNTIME_DIR=runtime, TMPDIR=target, LC_ALL="C.UTF-8",
            QT_QPA_PLATFORM=os.environ.get("QT_QPA_PLATFORM", "offscreen"),
            PULSE_SERVER="unix:" + os.path.join(target, "no-sound-server"),
            DBUS_SESSION_BUS_ADDRESS="disabled:")

    def program(self, name):
        return os.path.join(self.programs, name)

    def run(self, command):
        """Runs a command, a list of words; returns its cost and what it printed. Fails when the command fails."""
        done = subprocess.run([self.program("quillon-bench-measure"), self.figures, *command],
                              env=self.environment, cwd=self.target, stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, text=True, errors="replace")
        if done.returncode != 0:
            raise SystemExit(f"failed: {' '.join(command)}\n{done.stdout}{done.stderr}")
        with open(self.figures, encoding="ascii") as file:
            wall, cpu, peak = file.read().split()
        return Cost(float(wall), float(cpu), float(peak) / 1024), done.stdout


def lines_of(printed, word):
    """The figures of each line of a program's output that begins with `word`."""
    return [[float(f) for f in line.split()[1:]] for line in printed.splitlines() if line.split()[:1] == [word]]


def job_cost(whole, printed):
    """The cost of the timed stretch inside a program where it printed one, with the memory of the whole."""
    inner = lines_of(printed, "job")
    return Cost(*inner[-1], whole.peak) if inner else whole
