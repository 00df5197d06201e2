#pragma once

#include "FileStore.h"

#include <map>
#include <string>
#include <vector>

namespace qvm::test {

/// A file system in memory that counts operations and can let one of them, or all from one on, fail.
class MemoryFiles {
public:
    std::map<std::string, std::string> Files;
    std::map<std::string, std::string> Flushed; ///< what each file held when it was flushed last
    std::vector<std::string> Directories;

    int Operations = 0;         ///< ReadAll, Replace, WriteAt, Append, Remove and MakeDirectory done so far
    int FailAt = 0;             ///< the operation of this number fails (1: the next after Operations was 0); 0: none
    bool FailFromThere = false; ///< and all after it
    bool FlushFails = false;

    /// The record of functions over this object, which must outlive it.
    FileStore Store();

private:
    bool Fails();
};

} // namespace qvm::test
