"""The machine a benchmark ran on, as the scripts in bench/ print it. Standard library only."""
import os


def describe():
    """'N cores (nproc), CPU model' from /proc/cpuinfo."""
    model = "unknown CPU"
    try:
        with open("/proc/cpuinfo") as f:
            model = next((line.split(":", 1)[1].strip() for line in f
                          if line.startswith("model name")), model)
    except OSError:
        pass
    return "%d cores (nproc), %s" % (os.cpu_count() or 0, model)
