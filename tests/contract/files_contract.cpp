#include "contract/files_contract.h"

#include <algorithm>
#include <atomic>
#include <filesystem>

#include "platform/virtual/faulty_files.h"
#include "support/plain_user.h"

#ifndef _WIN32
#include <signal.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace contract {

namespace fs = std::filesystem;

Folder::Folder() {
    static std::atomic<int> count = 0;
    const std::string name = ::testing::UnitTest::GetInstance()->current_test_info()->name();
    path_ = fs::temp_directory_path() / (name + "-" + std::to_string(getpid()) + "-" + std::to_string(++count));
    fs::create_directories(path_);
}

Folder::~Folder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

std::vector<std::string> Folder::Entries() const {
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(path_))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

using Names = std::vector<std::string>;

TEST_P(FilesContract, WritesWholeFilesAndLeavesNothingBeside) {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    for (const std::string& content : {bytes, std::string("short"), std::string()}) {
        ASSERT_TRUE(files_->Write(folder_ / "MARLO.INI", content));
        EXPECT_EQ(Content(folder_ / "MARLO.INI"), content);
        EXPECT_EQ(files_->Size(folder_ / "MARLO.INI"), content.size());
    }
    EXPECT_EQ(folder_.Entries(), Names{"MARLO.INI"});
    ASSERT_TRUE(files_->Write(folder_ / "MARLO.INI", "0123456789"));
    EXPECT_EQ(files_->Read(folder_ / "MARLO.INI", 4), "0123");
}

TEST_P(FilesContract, FindsWhatExistsWhateverItsCaseAndNamesNewFilesAsGiven) {
    ASSERT_TRUE(files_->MakeFolders(folder_ / "Archivi/Citt\xC3\xA0"));
    ASSERT_TRUE(files_->Write(folder_ / "ARCHIVI/CITT\xC3\x80/Panda.mvn", "one"));
    EXPECT_EQ(folder_.Entries(), Names{"Archivi"});
    const platform::Path other = folder_ / "archivi/citt\xC3\xA0/PANDA.MVN";
    EXPECT_EQ(Content(other), "one");
    EXPECT_TRUE(files_->Exists(other));
    EXPECT_EQ(files_->Size(other), 3U);
    EXPECT_TRUE(files_->Append(other, " two"));
    EXPECT_TRUE(files_->Copy(other, folder_ / "ARCHIVI/copy.mvn"));
    EXPECT_TRUE(files_->Write(other, "three"));
    EXPECT_TRUE(files_->FolderExists(folder_ / "ARCHIVI"));
    EXPECT_TRUE(files_->MakeFolders(folder_ / "ARCHIVI"));
    EXPECT_EQ(files_->List(folder_ / "archivi/CITT\xC3\xA0", ".MVN"), Names{"Panda.mvn"});
    EXPECT_EQ(Content(folder_ / "Archivi/Citt\xC3\xA0/Panda.mvn"), "three");
    EXPECT_EQ(Content(folder_ / "Archivi/copy.mvn"), "one two");
    EXPECT_TRUE(files_->Remove(other));
    EXPECT_FALSE(files_->Exists(folder_ / "Archivi/Citt\xC3\xA0/Panda.mvn"));
    EXPECT_EQ(folder_.Entries(), Names{"Archivi"});
}

TEST_P(FilesContract, OfTwoNamesThatDifferInCaseTheExactOneCounts) {
    disk_.Write(folder_ / "a.ini", "small");
    fs::rename(folder_ / "a.ini", folder_ / "keep");
    disk_.Write(folder_ / "A.INI", "large");
    fs::rename(folder_ / "keep", folder_ / "a.ini");
    if (folder_.Entries().size() != 2) GTEST_SKIP() << "this file system does not tell cases apart";
    EXPECT_EQ(Content(folder_ / "a.ini"), "small");
    EXPECT_EQ(Content(folder_ / "A.INI"), "large");
}

TEST_P(FilesContract, WhatIsMissingIsAnAnswerAndNotAFailure) {
    const platform::Path gone = folder_ / "gone.dat";
    const platform::Path nowhere = folder_ / "no/folder/file.dat";
    EXPECT_FALSE(files_->Read(gone));
    EXPECT_FALSE(files_->Exists(gone));
    EXPECT_FALSE(files_->Size(gone));
    EXPECT_TRUE(files_->Remove(gone));
    EXPECT_FALSE(files_->Copy(gone, folder_ / "copy.dat"));
    EXPECT_FALSE(files_->Write(nowhere, "x"));
    EXPECT_FALSE(files_->Append(nowhere, "x"));
    EXPECT_FALSE(files_->FolderExists(gone));
    EXPECT_TRUE(files_->List(folder_ / "no", ".DAT").empty());
    EXPECT_FALSE(files_->Read({}));
    EXPECT_FALSE(files_->Write({}, "x"));
    EXPECT_EQ(folder_.Entries(), Names{});
}

TEST_P(FilesContract, AFolderIsNoFileAndAFileIsNoFolder) {
    ASSERT_TRUE(files_->MakeFolders(folder_ / "a.dat/b"));
    EXPECT_FALSE(files_->Read(folder_ / "a.dat"));
    EXPECT_FALSE(files_->Exists(folder_ / "a.dat"));
    EXPECT_FALSE(files_->Size(folder_ / "a.dat"));
    EXPECT_FALSE(files_->Write(folder_ / "a.dat", "x"));
    EXPECT_FALSE(files_->Append(folder_ / "a.dat", "x"));
    EXPECT_TRUE(files_->FolderExists(folder_ / "a.dat/b"));
    ASSERT_TRUE(files_->Write(folder_ / "file", "x"));
    EXPECT_FALSE(files_->FolderExists(folder_ / "file"));
    EXPECT_FALSE(files_->MakeFolders(folder_ / "file"));
    EXPECT_FALSE(files_->MakeFolders(folder_ / "file/inside"));
    EXPECT_EQ(folder_.Entries(), (Names{"a.dat", "file"}));
}

TEST_P(FilesContract, ListsTheFilesOfAnExtensionSortedInTheCodePage) {
    for (const char* name : {"b.lng", "Citt\xC3\xA0.LNG", "a.Lng", "LNG", "c.lng.txt", "d.lngx"}) {
        ASSERT_TRUE(files_->Write(folder_ / name, ""));
    }
    ASSERT_TRUE(files_->MakeFolders(folder_ / "folder.lng"));
    EXPECT_EQ(files_->List(folder_.Path(), ".LNG"), (Names{"Citt\xE0.LNG", "a.Lng", "b.lng"}));
}

TEST_P(FilesContract, AnEmptyTextMakesAnEmptyFile) {
    EXPECT_TRUE(files_->Write(folder_ / "trace.txt", {}));
    EXPECT_EQ(Content(folder_ / "trace.txt"), "");
}

TEST_P(FilesContract, AppendsToTheEndAndMakesWhatIsMissing) {
    EXPECT_TRUE(files_->Append(folder_ / "log.amp", "one\r\n"));
    EXPECT_TRUE(files_->Append(folder_ / "log.amp", {}));
    EXPECT_TRUE(files_->Append(folder_ / "LOG.AMP", "two\r\n"));
    EXPECT_EQ(Content(folder_ / "log.amp"), "one\r\ntwo\r\n");
}

#ifndef _WIN32

// Lets no file of this process grow beyond a size, as a full disk would.
class FullDisk {
  public:
    explicit FullDisk(rlim_t size) : oldHandler_(signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{size, old_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &old_);
        signal(SIGXFSZ, oldHandler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit old_{};
    void (*oldHandler_)(int);
};

TEST_P(FilesContract, AFullDiskLeavesEveryFileAsItWas) {
    const std::string old(1000, 'o');
    const std::string large(20000, 'n');
    for (const char* name : {"written", "appended", "copied"}) ASSERT_TRUE(files_->Write(folder_ / name, old));
    ASSERT_TRUE(files_->Write(folder_ / "source", large));
    std::vector<bool> answers;
    {
        const FullDisk full(8192);
        answers = {files_->Write(folder_ / "written", large), files_->Append(folder_ / "appended", large),
                   files_->Append(folder_ / "new", large), files_->Copy(folder_ / "source", folder_ / "copied")};
    }
    EXPECT_EQ(answers, std::vector<bool>(answers.size(), false));
    for (const char* name : {"written", "appended", "copied"}) EXPECT_EQ(Content(folder_ / name), old) << name;
    EXPECT_EQ(folder_.Entries(), (Names{"appended", "copied", "source", "written"}));
}

TEST_P(FilesContract, ALockedFileIsNeitherReplacedNorAppendedTo) {
    fs::permissions(folder_.Path(), fs::perms::all);
    const support::PlainUser user;
    if (!user.Holds()) GTEST_SKIP() << "nothing is locked to root";
    ASSERT_TRUE(files_->Write(folder_ / "locked", "old"));
    fs::permissions(folder_ / "locked", fs::perms::owner_read);
    EXPECT_FALSE(files_->Write(folder_ / "locked", "new"));
    EXPECT_FALSE(files_->Append(folder_ / "locked", "new"));
    EXPECT_EQ(Content(folder_ / "locked"), "old");
}

#endif

namespace {

using platform::virt::FaultyFiles;

INSTANTIATE_TEST_SUITE_P(Disk, FilesContract, ::testing::Values(MakeFiles([](platform::Files&) {
                             return std::make_unique<platform::real::RealFiles>();
                         })));
INSTANTIATE_TEST_SUITE_P(WithoutFault, FilesContract, ::testing::Values(MakeFiles([](platform::Files& disk) {
                             return std::make_unique<FaultyFiles>(disk);
                         })));

}  // namespace

TEST(RealFiles, FindNamesWithoutAFolderInTheCurrentOne) {
    const Folder folder;
    platform::real::RealFiles disk;
    const std::filesystem::path before = std::filesystem::current_path();
    ASSERT_TRUE(disk.MakeFolders(folder / "Prog"));
    EXPECT_FALSE(disk.MakeCurrent(folder / "no"));
    EXPECT_TRUE(disk.MakeCurrent(folder / "PROG"));
    EXPECT_TRUE(disk.Write("a.txt", "x"));
    EXPECT_EQ(disk.List(".", ".TXT"), Names{"a.txt"});
    std::filesystem::current_path(before);
    EXPECT_EQ(disk.Read(folder / "Prog/a.txt", 100), "x");
}

TEST(FaultyFiles, TheNthOperationFailsAndChangesNothing) {
    const Folder folder;
    platform::real::RealFiles disk;
    FaultyFiles files(disk);
    ASSERT_TRUE(files.Write(folder / "a", "old"));
    const std::vector<std::pair<const char*, std::function<bool()>>> operations{
        {"read", [&] { return files.Read(folder / "a", 100).has_value(); }},
        {"write", [&] { return files.Write(folder / "a", "new"); }},
        {"append", [&] { return files.Append(folder / "a", "new"); }},
        {"remove", [&] { return files.Remove(folder / "a"); }},
        {"copy", [&] { return files.Copy(folder / "a", folder / "b"); }},
        {"exists", [&] { return files.Exists(folder / "a"); }},
        {"size", [&] { return files.Size(folder / "a").has_value(); }},
        {"list", [&] { return !files.List(folder.Path(), "").empty(); }},
        {"make folders", [&] { return files.MakeFolders(folder / "c"); }},
        {"make current", [&] { return files.MakeCurrent(folder.Path()); }},
        {"folder exists", [&] { return files.FolderExists(folder.Path()); }},
    };
    for (const auto& [name, operation] : operations) {
        files.FailNth(1);
        EXPECT_FALSE(operation()) << name;
        EXPECT_EQ(folder.Entries(), Names{"a"}) << name;
        EXPECT_EQ(disk.Read(folder / "a", 100), "old") << name;
    }
}

TEST(FaultyFiles, FailOnceFailForEverAndReadOnly) {
    const Folder folder;
    platform::real::RealFiles disk;
    FaultyFiles files(disk);
    const auto write = [&] { return files.Write(folder / "a", "x"); };
    files.FailNth(2);
    EXPECT_TRUE(write());
    EXPECT_FALSE(write());
    EXPECT_TRUE(write());
    files.FailNth(2, true);
    EXPECT_TRUE(write());
    EXPECT_FALSE(write());
    EXPECT_FALSE(files.Exists(folder / "a"));
    files.FailNth(0);
    EXPECT_TRUE(write());
    files.FailWrites(true);
    EXPECT_FALSE(write());
    EXPECT_EQ(files.Read(folder / "a", 100), "x");
    files.FailWrites(false);
    EXPECT_TRUE(write());
    EXPECT_EQ(files.Operations(), 10);
}

}  // namespace contract
