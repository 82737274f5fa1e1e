// The coverage of an antialiased one-pixel segment with round caps
// (segment_outline.h scanned by coverage_scan.h), remembered for the
// segments drawn lately. A graph repaints the same curves over and over (the
// response and phase while only the spectra move): their segments are then
// looked up instead of scanned again, first by their exact ends where they
// were drawn (column_segments.h), then by shape. Coverage depends only on the
// segment's shape and where its first end lies within its pixel, so it is
// kept relative to that pixel and serves the same shape anywhere. Up to
// 16384 shapes per drawing thread, short ones only (a mask of at most 512
// pixels).
#pragma once

#include <cstdint>

// A segment's coverage bytes, row by row, over the pixels from (left, top);
// the bytes stay as they are until the thread's next call.
struct PlacedCoverage {
    int left = 0, top = 0, width = 0, height = 0;
    const uint8_t* alpha = nullptr;
};

// The coverage of the segment between the 24.8 fixed-point points (x1, y1)
// and (x2, y2), placed in pixels; false where the scan gives up (then
// nothing is remembered either).
bool segmentCoverage(int32_t x1, int32_t y1, int32_t x2, int32_t y2, PlacedCoverage& coverage);
// Forgets every segment remembered on the calling thread, as if the curves
// had all changed since the last paint (for timing the scan itself); the
// memory stays for the segments to come.
void forgetRememberedSegments();
