#!/usr/bin/env python3
"""Writes the seed corpus of the state-chunk reader fuzzer into fuzz/corpus/.

Each seed is a chunk (or a near miss) in the packed little-endian layout:
header (i32 record size, i32 band count), band records
(i32 type, i32 enabled, f64 frequency, f64 gain, f64 bandwidth, u8 flags
from 33 bytes up), then the trailer (i32 showGrid, i32 showTabs,
f64 outputGain, i32 viewFlags, i32 editorWidth, i32 editorHeight).
"""
import math
import pathlib
import struct

CORPUS = pathlib.Path(__file__).resolve().parent / "corpus"

DEFAULT_BANDS = [(0, 1, 100.0, 1.0, 2.0), (8, 1, 300.0, 1.0, 2.0),
                 (8, 1, 1000.0, 1.0, 2.0), (1, 1, 5000.0, 1.0, 2.0)]
ODD_BANDS = [(12, 1, math.nan, 2.0, 1.0), (-1, 1, 1000.0, math.inf, 1.0),
             (0, 1, -5.0, 0.001, -3.0), (2, 7, 1e300, 1e-300, 0.0),
             (9, 1, 30000.0, 0.0, math.inf), (4, 0, 5.0, -1.0, math.nan)]
TRAILER = struct.pack("<iidiii", 0, 1, 0.5, 1, 900, 700)


def records(bands, record_size=33, flags=1):
    out = b""
    for band in bands:
        record = struct.pack("<iiddd", *band)
        if record_size > 32:
            record += bytes([flags]) + b"\xee" * (record_size - 33)
        out += record
    return out


def chunk(bands, record_size=33, trailer=TRAILER, flags=1):
    header = struct.pack("<ii", record_size, len(bands))
    return header + records(bands, record_size, flags) + trailer


def seeds():
    yield "default", chunk(DEFAULT_BANDS)
    yield "old_records", chunk(DEFAULT_BANDS, record_size=32)
    yield "long_records", chunk(DEFAULT_BANDS, record_size=48, flags=0xfe)
    yield "odd_values", chunk(ODD_BANDS)
    yield "empty_band_list", chunk([])
    for length in range(0, 29, 4):
        yield f"trailer_{length}", chunk(DEFAULT_BANDS[:2], trailer=TRAILER[:length])
    yield "trailer_odd_length", chunk(DEFAULT_BANDS[:1], trailer=TRAILER[:13])
    yield "too_short", struct.pack("<iii", 33, 0, 1)
    yield "record_size_31", struct.pack("<ii", 31, 0) + b"\x00" * 5
    yield "negative_count", struct.pack("<ii", 33, -1) + TRAILER
    yield "huge_count", struct.pack("<ii", 33, 0x7fffffff) + records(DEFAULT_BANDS)
    yield "huge_record_size", struct.pack("<ii", 0x7fffffff, 2) + TRAILER
    yield "records_cut_short", chunk(DEFAULT_BANDS, trailer=b"")[:-5]


def main():
    CORPUS.mkdir(exist_ok=True)
    for name, data in seeds():
        (CORPUS / f"{name}.bin").write_bytes(data)


if __name__ == "__main__":
    main()
