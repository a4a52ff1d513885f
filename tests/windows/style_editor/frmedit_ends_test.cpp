// What becomes of a project, whatever ends the editor's work on it: many random edits beside a model, a failure, a kill
// or a power cut at each call of the file system, and a real process that is killed.
#include <algorithm>
#include <array>
#include <atomic>
#include <random>
#include <set>

#include "support/simulated_disk.h"
#include "windows/style_editor/editor_fixture.h"
#ifndef _WIN32
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

namespace kestrun {
namespace {

std::string RandomText(std::mt19937& random, size_t most) {
  std::string text(1 + random() % most, ' ');
  for (char& letter : text) letter = static_cast<char>('a' + random() % 26);
  return text;
}

// ---- many edits beside a model -------------------------------------------------------------------------------------

// What the archive of the project should hold, in its order.
class ProjectModel {
 public:
  ArchiveContent content;

  void Put(const std::string& name, const std::string& text) {
    const auto found = Find(name);
    if (found == content.end()) {
      content.emplace_back(name, text);
    } else {
      found->second = text;
    }
  }
  void Remove(const std::string& name) { content.erase(Find(name)); }

 private:
  ArchiveContent::iterator Find(const std::string& name) {
    return std::find_if(content.begin(), content.end(), [&name](const auto& entry) { return entry.first == name; });
  }
};

class RandomEditsTest : public EditorTest {
 protected:
  RandomEditsTest() {
    desktop.UseFiles(disk_);
    model_.content = {{"assembly.txt", "include main.vbs"}, {"main.vbs", "old code"}};
    saved_ = model_;
    path_ = MakeStyle("night.stl", model_.content);
    editor().LoadStyle(path_);
  }

  ~RandomEditsTest() override {
    CloseAllWindows();
    desktop.UseFiles(native_files);
  }

  // The entry whose text was typed is written by each flush.
  void Flush() {
    editor().SaveStyleScript();
    if (!open_.empty()) model_.Put(open_, typed_);
  }
  void EditOne() {
    const std::string name = AnyEntry();
    if (FolderOf(name) == "bmp") return;
    OpenEntry(name);
    if (!open_.empty()) model_.Put(open_, typed_);
    typed_ = RandomText(random_, 3000);
    open_ = name;
    Type(typed_);
    if (random_() % 2 == 0) Flush();
  }
  void AddModule() {
    const std::string name = NewName();
    dialogs().ExpectInput("Please enter a name for the module.", name);
    editor().mnu_newMod.Click();
    if (!open_.empty()) model_.Put(open_, typed_);
    model_.Put(name + ".vbs", " ");
  }
  void AddPicture() {
    const std::string name = NewName() + ".bmp";
    const std::string bytes = RandomText(random_, 2000);
    disk_.Put(Path(name), Bytes(bytes.begin(), bytes.end()));
    dialogs().ExpectFile(Path(name));
    editor().mnu_addimage.Click();
    if (!open_.empty()) model_.Put(open_, typed_);
    model_.Put(name, bytes);
  }
  void DeleteOne() {
    const std::string name = AnyEntry();
    if (name == open_ || model_.content.size() < 3) return;
    desktop.windowing().ExpectModal("FrmEditSelectFile", [&](Form& form) {
      auto& dialog = static_cast<FrmEditSelectFile&>(form);
      dialog.Choose(name);
      dialog.Command1.Press();
    });
    editor().mnu_deletefile.Click();
    Flush();
    model_.Remove(name);
  }
  void Save() {
    dialogs().ExpectBox("Saved");
    editor().mnu_save.Click();
    if (!open_.empty()) model_.Put(open_, typed_);
    saved_ = model_;
    EXPECT_EQ(ContentOf(path_), saved_.content);
  }
  void CloseAndOpen() {
    dialogs().ExpectBox("Do you want to save the changes to '" + path_ + "'", BoxAnswer::kNo);
    editor().Unload();
    Reopened(saved_);
    editor().LoadStyle(path_);
  }
  void VanishAndRecover() {
    Flush();
    CloseAllWindows();
    Reopened(model_);
    dialogs().ExpectBox(RecoveryQuestion(path_), BoxAnswer::kYes);
    editor().LoadStyle(path_);
  }
  void Check() {
    EXPECT_EQ(ContentOf(path_), saved_.content);
    Flush();
    EXPECT_EQ(ContentOf(WorkingCopy(path_)), model_.content);
  }

  void RunOne() {
    using Step = void (RandomEditsTest::*)();
    static constexpr std::array<Step, 12> kSteps{
        &RandomEditsTest::EditOne,   &RandomEditsTest::EditOne,    &RandomEditsTest::EditOne,
        &RandomEditsTest::EditOne,   &RandomEditsTest::EditOne,    &RandomEditsTest::EditOne,
        &RandomEditsTest::AddModule, &RandomEditsTest::AddPicture, &RandomEditsTest::DeleteOne,
        &RandomEditsTest::DeleteOne, &RandomEditsTest::Save,       &RandomEditsTest::Check};
    (this->*kSteps[random_() % kSteps.size()])();
  }

  // One step in which a call of the file system fails, and another flush behind it; true when it met one. What the step
  // was about is there or not, all else is as before, and the text in the box is stored.
  bool RunWithFailure() {
    const ArchiveContent before = ContentOf(WorkingCopy(path_));
    const ArchiveContent project = ContentOf(path_);
    const std::string boxed = EntryInTheBox();
    disk_.Arm(Fault::kFailure, static_cast<int>(random_() % 12), random_());
    const std::string touched = ChangeSomething(before);
    const bool has_failed = disk_.HasHappened();
    disk_.Disarm();
    editor().SaveStyleScript();
    editor().RefreshList();
    const ArchiveContent now = ContentOf(WorkingCopy(path_));
    EXPECT_EQ(Without(now, {boxed, touched}), Without(before, {boxed, touched}));
    EXPECT_TRUE(ContentOf(path_) == project || ContentOf(path_) == now);
    if (!EntryInTheBox().empty()) {
      EXPECT_THAT(now, testing::Contains(testing::Pair(EntryInTheBox(), editor().TxtCode.Text.get())));
    }
    return has_failed;
  }

 private:
  static std::string EntryInTheBox() { return std::string(TrimBlanks(editor().TxtCode.Tag.get())); }
  static ArchiveContent Without(ArchiveContent content, const std::set<std::string>& names) {
    std::erase_if(content, [&names](const auto& entry) { return names.contains(entry.first); });
    return content;
  }
  // Gives the name of the entry that it is about; empty for none.
  std::string ChangeSomething(const ArchiveContent& content) {
    const std::string any = content[random_() % content.size()].first;
    switch (random_() % 4) {
      case 0: {
        const std::string name = NewName();
        dialogs().ExpectInput("Please enter a name for the module.", name);
        editor().mnu_newMod.Click();
        return name + ".vbs";
      }
      case 1:
        if (content.size() < 4 || any == EntryInTheBox()) return {};
        for (const ProjectEntry& entry : editor().project().Entries()) {
          if (entry.name == any) editor().DeleteNumber(entry.number);
        }
        editor().SaveStyleScript();
        return any;
      case 2: editor().SaveStyle(path_); return {};
      default:
        OpenEntry(any);
        if (EntryInTheBox() == any) Type(RandomText(random_, 2000));
        editor().SaveStyleScript();
        return any;
    }
  }
  void Reopened(const ProjectModel& state) {
    model_ = state;
    open_.clear();
  }
  std::string AnyEntry() { return model_.content[random_() % model_.content.size()].first; }
  std::string NewName() { return "entry" + std::to_string(++last_name_); }
  static std::string FolderOf(const std::string& name) { return ClsPFF::GetFileExt(name); }

  SimulatedDisk disk_;
  std::mt19937 random_{20020522};
  ProjectModel model_;
  ProjectModel saved_;
  std::string path_;
  std::string open_;   // whose text the box holds
  std::string typed_;  // and what it is
  int last_name_ = 0;
};

TEST_F(RandomEditsTest, FiveHundredStepsLeaveWhatTheModelSays) {
  for (int step = 0; step < 500; ++step) {
    RunOne();
    if (step % 50 == 24) CloseAndOpen();
    if (step % 50 == 49) VanishAndRecover();
    if (HasFailure()) FAIL() << "in step " << step;
  }
  Check();
}

// A call of the file system fails in each step. Nothing that was saved or flushed before is lost: the step has
// happened, or it has not, and the editor goes on.
TEST_F(RandomEditsTest, FailuresInTheMiddleOfFiveHundredStepsLoseNothing) {
  desktop.OnUnexpected([](const UnexpectedQuestion&) {});
  int failed = 0;
  for (int step = 0; step < 500 && !HasFailure(); ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    if (RunWithFailure()) ++failed;
  }
  EXPECT_GT(failed, 200);
}

// ---- an end at each call of the file system ------------------------------------------------------------------------

constexpr const char* kProject = "night.stl";
constexpr const char* kAdded = "added.bmp";
constexpr int kMostCalls = 1000;

class EndsTest : public EditorTest, public testing::WithParamInterface<Fault> {
 protected:
  ~EndsTest() override {
    CloseAllWindows();
    desktop.UseFiles(native_files);
  }

  // A session; each step changes what the working copy holds or what the project file holds once.
  struct Step {
    const char* name;
    std::function<void(EndsTest&)> run;
  };
  static const std::vector<Step>& Steps() {
    static const std::vector<Step> steps{
        {"open", [](EndsTest&) { editor().LoadStyle(kProject); }},
        {"type a longer text", [](EndsTest&) { Rewrite("assembly.txt", std::string(1500, 'n')); }},
        {"save", [](EndsTest&) { editor().SaveStyle(kProject); }},
        {"add a file",
         [](EndsTest& test) {
           test.dialogs().ExpectFile(kAdded);
           editor().AddFile("");
         }},
        {"type a shorter text", [](EndsTest&) { Rewrite("main.vbs", "short"); }},
        {"delete",
         [](EndsTest&) {
           editor().DeleteNumber(1);
           editor().SaveStyleScript();
         }},
        {"save again", [](EndsTest&) { editor().SaveStyle(kProject); }},
    };
    return steps;
  }

  // Nothing is typed into an entry that did not open.
  static void Rewrite(const std::string& name, const std::string& text) {
    OpenEntry(name);
    if (editor().Label3.Caption.get() != "Code Window " + name) return;
    Type(text);
    editor().SaveStyleScript();
  }

  // What both files hold.
  struct State {
    ArchiveContent project;
    ArchiveContent working;
    bool operator==(const State&) const = default;
  };
  [[nodiscard]] State Present() const { return {ContentOf(kProject), ContentOf(copy_)}; }

  [[nodiscard]] std::unique_ptr<SimulatedDisk> MakeDisk() {
    auto disk = std::make_unique<SimulatedDisk>();
    disk->Put(kProject, original_);
    disk->Put(kAdded, Bytes(700, 'p'));
    PrepareDisk(*disk);
    return disk;
  }
  // What else there is, and what becomes of it before the next session; the second is called with the disk of the
  // first.
  virtual void PrepareDisk(SimulatedDisk&) {}
  virtual void LeaveDisk(SimulatedDisk& disk) { disk.StartAgain(); }

  void SetUp() override {
    const std::string made =
        ReadFile(MakeStyle("made.stl", {{"assembly.txt", "include main.vbs"}, {"main.vbs", "the code of the module"}}));
    original_.assign(made.begin(), made.end());
    const auto disk = MakeDisk();
    desktop.UseFiles(*disk);
    desktop.OnUnexpected([](const UnexpectedQuestion&) {});
    states_ = {Present()};
    for (const Step& step : Steps()) {
      step.run(*this);
      states_.push_back(Present());
    }
    CloseAllWindows();
    LeaveDisk(*disk);
  }

  // The step that the fault has met; nothing when it met none.
  std::optional<size_t> RunUntilFault(SimulatedDisk& disk) {
    for (size_t at = 0; at < Steps().size(); ++at) {
      bool has_ended = false;
      try {
        Attempt([&] { Steps()[at].run(*this); });
      } catch (const ProcessEnded&) {
        has_ended = true;
      }
      if (has_ended || disk.HasHappened()) return at;
    }
    return std::nullopt;
  }

  // The whole state before the step or behind it, for each of the two files.
  void ExpectWhole(size_t step, const std::string& when) {
    const State now = Present();
    const State& before = states_[step];
    const State& after = states_[step + 1];
    EXPECT_TRUE(now.project == before.project || now.project == after.project) << "project file, " << when;
    // The working copy is made by the first step.
    const bool is_working = now.working == before.working || now.working == after.working;
    EXPECT_TRUE(is_working) << "working copy, " << when;
  }

  // The next session takes what the last one left, and goes on working with it.
  void ExpectRecovery(const std::string& when) {
    const ArchiveContent left = Present().working;
    const bool is_asked = platform().files().Exists(copy_);
    if (is_asked) dialogs().ExpectBox(RecoveryQuestion(kProject), BoxAnswer::kYes);
    editor().LoadStyle(kProject);
    if (is_asked) {
      EXPECT_EQ(Present().working, left) << when;
    }
    OpenEntry("assembly.txt");
    Type("written after the recovery");
    editor().SaveStyle(kProject);
    EXPECT_THAT(ContentOf(kProject), testing::Contains(testing::Pair("assembly.txt", "written after the recovery")))
        << when;
  }

  void WalkAllCalls() {
    int call = 0;
    for (; call < kMostCalls && !HasFailure(); ++call) {
      const auto disk = MakeDisk();
      desktop.UseFiles(*disk);
      disk->Arm(GetParam(), call, static_cast<unsigned>(call) + 1);
      const std::optional<size_t> step = RunUntilFault(*disk);
      CloseAllWindows();
      desktop.clock().Clear();
      LeaveDisk(*disk);
      if (!step) break;
      const std::string when = std::string(Steps()[*step].name) + ", call " + std::to_string(call);
      ExpectWhole(*step, when);
      ExpectRecovery(when);
      CloseAllWindows();
    }
    EXPECT_GT(call, 60);
    EXPECT_LT(call, kMostCalls) << "the walk does not end";
  }

  std::string copy_ = WorkingCopy(kProject);  // that the session works on
  Bytes original_;
  std::vector<State> states_;  // before each step, and behind the last
};

TEST_P(EndsTest, ProjectFileAndWorkingCopyAreWholeAndTheNextSessionGoesOn) { WalkAllCalls(); }

// Another program has the project open all the time, and closes it before the next session.
class SecondProgramEndsTest : public EndsTest {
 protected:
  SecondProgramEndsTest() { copy_ = "~2$night.stl"; }

  void PrepareDisk(SimulatedDisk& disk) override {
    disk.Put(kTheirs, original_);
    disk.Put(kTheirTurn, Bytes(holder_.begin(), holder_.end()));
    turn_ = disk.TryLock(kTheirTurn, "kestrun");
  }
  void LeaveDisk(SimulatedDisk& disk) override {
    turn_ = nullptr;
    disk.StartAgain();
    EXPECT_EQ(disk.Content(kTheirs), original_) << "the other program's copy";
    disk.Delete(kTheirs);
    disk.Delete(kTheirTurn);
  }

 private:
  static constexpr const char* kTheirs = "~$night.stl";
  static constexpr const char* kTheirTurn = "~$night.stl.open";
  std::string holder_ = FormatLockHolder({4711, "kestrun"});
  std::unique_ptr<FileLock> turn_;
};

TEST_P(SecondProgramEndsTest, WhatTheSecondProgramTypedIsOfferedToTheNextSession) { WalkAllCalls(); }

std::string NameOfFault(const testing::TestParamInfo<Fault>& row) {
  return row.param == Fault::kFailure ? "Failure" : row.param == Fault::kKill ? "Kill" : "PowerCut";
}
INSTANTIATE_TEST_SUITE_P(Faults, EndsTest, testing::Values(Fault::kFailure, Fault::kKill, Fault::kPowerCut),
                         &NameOfFault);
INSTANTIATE_TEST_SUITE_P(Faults, SecondProgramEndsTest,
                         testing::Values(Fault::kFailure, Fault::kKill, Fault::kPowerCut), &NameOfFault);

// ---- a process that is killed --------------------------------------------------------------------------------------

#ifndef _WIN32

// A text that shows whether all of it arrived, and which one it is.
std::string NumberedText(unsigned number) {
  const std::string mark = "' " + std::to_string(number) + " ";
  return mark + std::string(number * 37 % 5000, 'x') + mark;
}

// What the process that is killed has done so far.
struct Done {
  std::atomic<unsigned> flushed;
  std::atomic<unsigned> saved;
};

class KilledEditorTest : public EditorTest {
 protected:
  KilledEditorTest() {
    void* shared = mmap(nullptr, sizeof(Done), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    done_ = new (shared) Done{};
  }
  ~KilledEditorTest() override { munmap(done_, sizeof(Done)); }

  // Types, adds and saves until it is killed.
  [[noreturn]] void Work(const std::string& path) {
    desktop.OnUnexpected([](const UnexpectedQuestion&) {});
    editor().LoadStyle(path);
    OpenEntry("main.vbs");
    for (unsigned number = 1;; ++number) {
      Type(NumberedText(number));
      editor().SaveStyleScript();
      done_->flushed = number;
      if (number % 5 == 2) {
        dialogs().ExpectFile(Path("picture.bmp"));
        editor().AddFile("");
      }
      if (number % 4 != 3) continue;
      editor().SaveStyle(path);
      done_->saved = number;
    }
  }

  // The process is gone when this returns.
  void WorkAndKill(const std::string& path, unsigned flushes) {
    const pid_t worker = fork();
    if (worker == 0) Work(path);
    while (done_->flushed < flushes) usleep(200);
    usleep(flushes * 531 % 3000);
    kill(worker, SIGKILL);
    waitpid(worker, nullptr, 0);
  }

  // The number of the text that the module holds; it is there whole.
  static unsigned NumberOf(const ArchiveContent& content) {
    for (const auto& [name, text] : content) {
      if (name != "main.vbs") continue;
      const auto number = static_cast<unsigned>(std::stoul(text.substr(2)));
      EXPECT_EQ(text, NumberedText(number));
      return number;
    }
    ADD_FAILURE() << "the module is gone";
    return 0;
  }

  Done* done_;
};

TEST_F(KilledEditorTest, TheNextOpeningAsksAndYesGivesTheLastFlush) {
  for (unsigned round = 1; round <= 12 && !HasFailure(); ++round) {
    done_->flushed = 0;
    done_->saved = 0;
    const std::string name = "killed" + std::to_string(round) + ".stl";
    const std::string path = MakeStyle(name, {{"assembly.txt", "include main.vbs"}, {"main.vbs", NumberedText(0)}});
    WriteFile(Path("picture.bmp"), std::string(3000, 'p'));
    WorkAndKill(path, 3 + round);
    desktop.OnUnexpected([](const UnexpectedQuestion&) {});  // what was done about a save that was cut short
    dialogs().ExpectBox(RecoveryQuestion(path), BoxAnswer::kYes);
    editor().LoadStyle(path);
    const unsigned recovered = NumberOf(ContentOf(WorkingCopy(path)));
    EXPECT_GE(recovered, done_->flushed.load());
    EXPECT_LE(recovered, done_->flushed.load() + 1);
    const unsigned saved = NumberOf(ContentOf(path));
    EXPECT_GE(saved, done_->saved.load());
    CloseAllWindows();
  }
}

#endif

}  // namespace
}  // namespace kestrun
