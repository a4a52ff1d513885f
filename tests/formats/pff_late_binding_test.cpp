// The archive as a script uses it: operations by name, values written back through the arguments.
#include "base/convert.h"
#include "formats/pff_fixture.h"

namespace kestrun {
namespace {

class PffLateBindingTest : public PffTest {
 protected:
  PffLateBindingTest() {
    WriteArchive({{"ABC.BMS", "0123456789"}, {"D.BMS", "dddd"}});
    EXPECT_TRUE(object->LoadPff(archive_path));
  }

  Variant Call(std::string_view name, std::vector<Variant>& arguments) {
    return object->Call(object->FindMember(name), arguments);
  }
  [[nodiscard]] static Variant ByteArray(std::vector<Variant> elements) {
    const Ref<ArrayBody> array = MakeRef<ArrayBody>(std::vector<int32_t>{static_cast<int32_t>(elements.size())});
    array->elements = std::move(elements);
    return Variant(array);
  }

  const Ref<ClsPFF> object = MakeRef<ClsPFF>();
};

TEST_F(PffLateBindingTest, AllFieldsOfAnEntryComeBackThroughTheArguments) {
  std::vector<Variant> arguments(7);
  arguments[0] = 1;
  EXPECT_EQ(ToLong(Call("GetPFFInfo", arguments)), 0);
  EXPECT_EQ(ToLong(arguments[1]), 0);
  EXPECT_EQ(ToText(arguments[2]), std::string("D.BMS") + std::string(11, '\0'));
  EXPECT_EQ(ToLong(arguments[3]), 4);
  EXPECT_EQ(ToLong(arguments[4]), 30);
  EXPECT_EQ(ToText(arguments[5]), "0");
  EXPECT_TRUE(arguments[6].Is(VarType::kBoolean));
  EXPECT_FALSE(ToBoolean(arguments[6]));
}

TEST_F(PffLateBindingTest, AnEntryOutOfRangeIsANumberAndLeavesTheArguments) {
  std::vector<Variant> arguments{2, 1, 2, 3, 4, 5, 6};
  EXPECT_EQ(ToLong(Call("GetPFFInfo", arguments)), error::kSubscriptOutOfRange);
  EXPECT_EQ(ToLong(arguments[3]), 3);
}

TEST_F(PffLateBindingTest, FieldsGoInByTheirArguments) {
  EXPECT_EQ(ToLong(CallMember(*object, "WritePFFInfo", {0, 5, "NEW.BMS", "77", true})), 0);
  EXPECT_EQ(ToLong(GetMember(*object, "FilePackDate", {"NEW.BMS"})), 5);
  EXPECT_EQ(ToLong(GetMember(*object, "FileInfo", {"0"})), 77);
  EXPECT_TRUE(ToBoolean(GetMember(*object, "FileDeleted", {0})));
  EXPECT_FALSE(ToBoolean(GetMember(*object, "Edited")));
}

TEST_F(PffLateBindingTest, ALookUpWritesTheIndexBack) {
  std::vector<Variant> arguments{"d.bms", Variant()};
  EXPECT_TRUE(ToBoolean(Call("PFFFileExists", arguments)));
  EXPECT_EQ(ToLong(arguments[1]), 1);
  arguments[0] = "none";
  EXPECT_FALSE(ToBoolean(Call("PFFFileExists", arguments)));
  EXPECT_EQ(ToLong(arguments[1]), -1);
}

TEST_F(PffLateBindingTest, AnOutsideFileComesBackAsTheResultAndInTheArgument) {
  WriteFile(Path("map.bms"), "\x01\xFFz");
  std::vector<Variant> arguments{Path("map.bms"), Variant()};
  const Variant result = Call("FileBuffer", arguments);
  ASSERT_EQ(result.array().elements.size(), 3U);
  EXPECT_TRUE(result.array().elements[1].Is(VarType::kByte));
  EXPECT_EQ(ToLong(result.array().elements[1]), 255);
  EXPECT_EQ(arguments[1].array().elements.size(), 3U);
}

TEST_F(PffLateBindingTest, AMissingOutsideFileGivesNothing) {
  std::vector<Variant> arguments{Path("none.bms"), "untouched"};
  EXPECT_TRUE(Call("FileBuffer", arguments).Is(VarType::kEmpty));
  EXPECT_EQ(ToText(arguments[1]), "untouched");
}

TEST_F(PffLateBindingTest, OnlyAnArrayOfBytesIsPacked) {
  const auto pack = [&](const Variant& buffer) {
    return ErrorNumberOf([&] { return CallMember(*object, "PackFile", {buffer, "N.BMS"}); });
  };
  EXPECT_EQ(pack("text"), error::kTypeMismatch);
  EXPECT_EQ(pack(ByteArray({256})), error::kOverflow);
  EXPECT_EQ(pack(ByteArray({-1})), error::kOverflow);
  EXPECT_EQ(pack(ByteArray({"no number"})), error::kTypeMismatch);
  EXPECT_EQ(object->PFFTotalFiles(), 2);
  EXPECT_EQ(pack(ByteArray({0, uint8_t{255}, "65"})), 0);
  object->SavePffFile();
  EXPECT_EQ(Stored("N.BMS"), std::string("\0\xFF\x41", 3));
}

TEST_F(PffLateBindingTest, WhatTheClassOnlyTellsCannotBeSet) {
  for (const char* name : {"Edited", "IsNewPFF", "PFFTotalFiles", "PFFTableOffset", "PFFItemSize", "PFFItemInfoSize"}) {
    EXPECT_EQ(ErrorNumberOf([&] { return PutMember(*object, name, 1), 0; }), error::kPropertyReadOnly) << name;
  }
  EXPECT_EQ(ErrorNumberOf([&] { return PutMember(*object, "FileLength", 1, {0}), 0; }), error::kPropertyReadOnly);
  EXPECT_EQ(ErrorNumberOf([&] { return PutMember(*object, "OpenFileName", "x"), 0; }), 1035);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*object, "FileName"); }), error::kWrongArgumentCount);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*object, "PFFProgress"); }), error::kMemberNotFound);
}

TEST_F(PffLateBindingTest, ANameThatLooksLikeANumberIsTakenAsOne) {
  EXPECT_EQ(ToText(GetMember(*object, "FileName", {"1"})), "D.BMS");
  EXPECT_EQ(ToText(GetMember(*object, "FileName", {1.0})), "D.BMS");
  EXPECT_EQ(ErrorOf([&] { return GetMember(*object, "FileName", {"7"}); }), "9: Subscript out of range");
  EXPECT_EQ(ErrorOf([&] { return GetMember(*object, "FileName", {"7.BMS"}); }), "1033: File not found.");
}

}  // namespace
}  // namespace kestrun
