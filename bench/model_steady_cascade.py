#!/usr/bin/env python3
"""Models the steady cascade's inner loop with llvm-mca for processors we may not have.

Compiles the AVX-512 and AVX2 kernels with the project's flags, takes from the
object code the loop that runs four steps of a pass with all bands in flight,
and asks llvm-mca for its cycles on each target. Prints cycles per step and
per band and stereo frame; these are modelled figures, not measurements.

usage: bench/model_steady_cascade.py [--compiler c++] [--mca llvm-mca-19]
"""
import argparse
import pathlib
import re
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
FLAGS = ["-O3", "-DNDEBUG", "-ffp-contract=off", "-std=c++20", f"-I{ROOT}"]
RING_STEPS = 4  # steps in one turn of the loop
MULTIPLIES_PER_BAND = 5

# (kernel source, lane type, its mangled name, bands per register, register counts, targets)
CASES = [
    ("band_cascade_avx512.cpp", "Avx512Lanes", "11Avx512Lanes", 4, [4, 2],
     ["icelake-server", "sapphirerapids", "znver4"]),
    ("band_cascade_avx2.cpp", "Avx2Lanes", "12Avx2LanesForI11Avx2KernelsE", 2, [2],
     ["haswell", "skylake", "znver2"]),
]


def disassemble(source, workdir, compiler):
    obj = workdir / (source + ".o")
    subprocess.run([compiler, *FLAGS, "-c", "-o", obj, ROOT / "engine" / source], check=True)
    return subprocess.run(["objdump", "-d", "--no-show-raw-insn", obj], check=True,
                          capture_output=True, text=True).stdout


def functions(listing):
    found, name = {}, None
    for line in listing.splitlines():
        head = re.match(r"[0-9a-f]+ <(.*)>:", line)
        if head:
            name = head.group(1)
            found[name] = []
            continue
        ins = re.match(r"\s*([0-9a-f]+):\s+(\S+)\s*(.*)", line)
        if ins and name:
            found[name].append((int(ins.group(1), 16), ins.group(2), ins.group(3)))
    return found


def ring_loop(listing, mangled, registers, per_register):
    """The loop of four steps in the ring function of a pass with every register full.

    There the last band is in the top slot of the top register: runRing<R - 1, B - 1>.
    """
    wanted = RING_STEPS * MULTIPLIES_PER_BAND * registers
    ring = (f"CascadePassI{mangled}Li{registers}EE7runRing"
            f"ILi{registers - 1}ELi{per_register - 1}E")
    best = None
    for name, code in functions(listing).items():
        if ring not in name:
            continue
        for address, op, args in code:
            target = re.match(r"([0-9a-f]+)", args)
            if not op.startswith("j") or not target or int(target.group(1), 16) > address:
                continue
            body = [i for i in code if int(target.group(1), 16) <= i[0] <= address]
            multiplies = sum("mulpd" in i[1] for i in body)
            if multiplies == wanted and (best is None or len(body) < len(best)):
                best = body
    if best is None:
        raise SystemExit(f"no {registers}-register loop found in {ring}")
    return "\n".join(f"{op} {re.sub(r'<[^>]*>|#.*', '', args)}".strip()
                     for _, op, args in best if not op.startswith("j")) + "\n"


def cycles_per_turn(mca, cpu, loop):
    """None when this llvm-mca does not know the processor."""
    run = subprocess.run([mca, f"-mcpu={cpu}", "-iterations=300"], input=loop,
                         capture_output=True, text=True)
    found = re.search(r"Total Cycles:\s+(\d+)", run.stdout)
    return int(found.group(1)) / 300 if run.returncode == 0 and found else None


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--compiler", default="c++")
    parser.add_argument("--mca", default="llvm-mca-19")
    args = parser.parse_args()
    version = subprocess.run([args.mca, "--version"], capture_output=True, text=True).stdout
    release = re.search(r"version (\S+)", version).group(1)
    print(f"modelled with {args.mca} ({release}): cycles per step, and per band and stereo frame")
    with tempfile.TemporaryDirectory() as tmp:
        for source, lanes, mangled, per_register, register_counts, targets in CASES:
            listing = disassemble(source, pathlib.Path(tmp), args.compiler)
            for registers in register_counts:
                loop = ring_loop(listing, mangled, registers, per_register)
                bands = registers * per_register
                for cpu in targets:
                    turn = cycles_per_turn(args.mca, cpu, loop)
                    if turn is None:
                        print(f"  {lanes:12} {bands:2} bands  {cpu:16} not modelled by {args.mca}")
                        continue
                    step = turn / RING_STEPS
                    print(f"  {lanes:12} {bands:2} bands  {cpu:16} {step:6.2f} per step"
                          f"  {step / bands:5.2f} per band and frame")


if __name__ == "__main__":
    main()
