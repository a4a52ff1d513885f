#include "base/object.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/error_number.h"

namespace kestrun {
namespace {

class Animal : public TableObject {
 public:
  [[nodiscard]] std::string TypeName() const override { return "Animal"; }
  [[nodiscard]] const MemberTable& Members() const override { return kMembers; }

  int legs = 4;
  std::string name = "Rex";
  bool alive = true;
  static const MemberTable kMembers;

 protected:
  [[nodiscard]] bool IsAlive() const override { return alive; }
};

Animal& Self(Object& object) { return static_cast<Animal&>(object); }

constexpr Member kAnimalRows[]{
    {"Legs", MemberKind::kReadOnly, 0, 0, [](Object& object, Arguments) -> Variant { return Self(object).legs; },
     nullptr},
    {"Name", MemberKind::kReadWrite, 0, 0, [](Object& object, Arguments) -> Variant { return Self(object).name; },
     [](Object& object, Arguments, const Variant&) { Self(object).name = "changed"; }},
    {"Secret", MemberKind::kWriteOnly, 0, 0, nullptr,
     [](Object& object, Arguments, const Variant& value) { Self(object).legs = value.whole(); }},
    {"Add", MemberKind::kMethod, 1, 2,
     [](Object&, Arguments given) -> Variant {
       const int sum = given[0].whole() + (given.size() > 1 ? given[1].whole() : 0);
       given[0] = 100;
       return sum;
     },
     nullptr},
    {"Part", MemberKind::kReadWrite, 1, 1, [](Object&, Arguments given) -> Variant { return given[0]; },
     [](Object& object, Arguments given, const Variant& value) {
       Self(object).legs = given[0].whole() * value.whole();
     }},
};
const MemberTable Animal::kMembers{nullptr, kAnimalRows};

class Dog final : public Animal {
 public:
  [[nodiscard]] const MemberTable& Members() const override { return kDogMembers; }
  static const MemberTable kDogMembers;
};

constexpr Member kDogRows[]{
    {"Bark", MemberKind::kMethod, 0, 0, [](Object&, Arguments) -> Variant { return "Woof"; }, nullptr},
    {"NAME", MemberKind::kReadOnly, 0, 0, [](Object&, Arguments) -> Variant { return "Dog"; }, nullptr},
};
const MemberTable Dog::kDogMembers{&Animal::kMembers, kDogRows};

class ObjectTest : public testing::Test {
 protected:
  Ref<Animal> animal = MakeRef<Animal>();
  Ref<Dog> dog = MakeRef<Dog>();
};

TEST_F(ObjectTest, MemberIsFoundInAnyCase) {
  EXPECT_EQ(GetMember(*animal, "legs").whole(), 4);
  EXPECT_EQ(GetMember(*animal, "LEGS").whole(), 4);
}

TEST_F(ObjectTest, UnknownNameIsNoMember) {
  EXPECT_EQ(animal->FindMember("Wings"), kNoMember);
  EXPECT_EQ(ErrorOf([&] { return GetMember(*animal, "Wings"); }),
            "438: Object doesn't support this property or method");
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*animal, "Wings", 2); }), 438);
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*animal, "Wings"); }), 438);
}

TEST_F(ObjectTest, WrongNumberOfArgumentsIsRefused) {
  EXPECT_EQ(ErrorOf([&] { return CallMember(*animal, "Add"); }),
            "450: Wrong number of arguments or invalid property assignment");
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*animal, "Add", {1, 2, 3}); }), 450);
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*animal, "Legs", {1}); }), 450);
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*animal, "Part", 1); }), 450);
  EXPECT_EQ(CallMember(*animal, "Add", {1}).whole(), 1);
  EXPECT_EQ(CallMember(*animal, "Add", {1, 2}).whole(), 3);
}

TEST_F(ObjectTest, ReadOnlyPropertyCannotBeWritten) {
  EXPECT_EQ(ErrorOf([&] { PutMember(*animal, "Legs", 3); }), "383: Property is read-only");
  EXPECT_EQ(animal->legs, 4);
}

TEST_F(ObjectTest, MethodCannotBeAssignedHoweverManyArgumentsItTakes) {
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*animal, "Add", 3); }), 438);
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*animal, "Add", 3, {1}); }), 438);
}

TEST_F(ObjectTest, WriteOnlyPropertyCannotBeRead) {
  EXPECT_EQ(ErrorNumberOf([&] { return GetMember(*animal, "Secret"); }), 438);
  PutMember(*animal, "Secret", 6);
  EXPECT_EQ(animal->legs, 6);
}

TEST_F(ObjectTest, PropertyWithAnIndexGetsItBeforeTheValue) {
  PutMember(*animal, "Part", 5, {3});
  EXPECT_EQ(animal->legs, 15);
  EXPECT_EQ(GetMember(*animal, "Part", {9}).whole(), 9);
}

TEST_F(ObjectTest, SetIsTheSameAsAssignmentUnlessTheObjectSaysOtherwise) {
  animal->PutReference(animal->FindMember("Name"), {}, Variant::Nothing());
  EXPECT_EQ(animal->name, "changed");
}

TEST_F(ObjectTest, CalleeMayWriteAnArgumentBack) {
  Variant argument(1);
  EXPECT_EQ(animal->Call(animal->FindMember("Add"), {&argument, 1}).whole(), 1);
  EXPECT_EQ(argument.whole(), 100);
}

TEST_F(ObjectTest, DerivedTableHasTheBaseMembersFirstButThoseItHides) {
  std::vector<std::string> names;
  for (const MemberInfo& member : dog->ListMembers()) names.push_back(member.name);
  EXPECT_THAT(names, testing::ElementsAre("Legs", "Secret", "Add", "Part", "Bark", "NAME"));
  EXPECT_EQ(dog->FindMember("Legs"), animal->FindMember("Legs"));
  EXPECT_EQ(CallMember(*dog, "Bark").text(), u"Woof");
}

TEST_F(ObjectTest, DerivedMemberHidesTheBaseMemberOfItsName) { EXPECT_EQ(GetMember(*dog, "Name").text(), u"Dog"); }

TEST_F(ObjectTest, ListingTellsKindAndArguments) {
  const MemberInfo add = animal->ListMembers()[3];
  EXPECT_EQ(add.kind, MemberKind::kMethod);
  EXPECT_EQ(add.least_arguments, 1);
  EXPECT_EQ(add.most_arguments, 2);
}

TEST_F(ObjectTest, ObjectsOfOneClassShareTheirLayout) {
  EXPECT_EQ(animal->MemberLayout(), MakeRef<Animal>()->MemberLayout());
  EXPECT_NE(animal->MemberLayout(), dog->MemberLayout());
}

TEST_F(ObjectTest, ObjectThatHasGoneAwayAnswersNothing) {
  animal->alive = false;
  EXPECT_EQ(ErrorOf([&] { return GetMember(*animal, "Legs"); }), "424: Object required");
  EXPECT_EQ(ErrorNumberOf([&] { PutMember(*animal, "Name", "x"); }), 424);
  EXPECT_EQ(ErrorNumberOf([&] { return CallMember(*animal, "Add", {1}); }), 424);
}

TEST_F(ObjectTest, ObjectIsNoCollectionUnlessItSaysSo) {
  EXPECT_EQ(animal->Enumerate(), nullptr);
  EXPECT_EQ(animal->DefaultMember(), kNoMember);
}

}  // namespace
}  // namespace kestrun
