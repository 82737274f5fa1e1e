// An output file written beside its final name and renamed into place only
// when complete, so that a failed or interrupted command leaves no file
// created or changed.
#pragma once

#include <string>

class PendingOutput {
public:
    // Creates an empty temporary file in the final file's folder; throws
    // CommandFailure when the folder cannot take it or the final name is a
    // folder.
    explicit PendingOutput(const std::string& finalPath);
    ~PendingOutput();  // removes the temporary file unless committed
    PendingOutput(const PendingOutput&) = delete;
    PendingOutput& operator=(const PendingOutput&) = delete;

    const std::string& path() const { return temporaryPath_; }
    // Renames the temporary file to the final name; throws CommandFailure.
    void commit();

private:
    std::string finalPath_;
    std::string temporaryPath_;
    bool committed_ = false;
};

// Throws CommandFailure when `path` names a folder (or nothing at all).
void requireFileName(const std::string& path);

// Throws UsageError when both names lead to the same file (also through links).
void requireDistinctFiles(const std::string& inputPath, const std::string& outputPath);
