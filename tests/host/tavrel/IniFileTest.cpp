#include <string>

#include <gmock/gmock.h>
#include <tavrel/core/IniFile.h>

namespace tavrel {
namespace core {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

using Groups = IniFile::Groups;

IniFile WithDoor() {
  IniFile settings;
  settings.SetValue("Door", "Name", "north");
  settings.SetValue("Door", "Width", "90");
  return settings;
}

TEST(AnIniFile, StartsWithoutGroupsAndMarks) {
  const IniFile settings;
  EXPECT_THAT(settings.AllGroups(), IsEmpty());
  EXPECT_THAT(settings.RemovedGroups(), IsEmpty());
  EXPECT_THAT(settings.RemovedKeys(), IsEmpty());
}

TEST(AnIniFile, GivesTheTextOfAKey) {
  std::string name;
  EXPECT_TRUE(WithDoor().TryGetValue(name, "Door", "Name"));
  EXPECT_EQ("north", name);
}

TEST(AnIniFile, LeavesTheTextAloneIfTheKeyIsMissing) {
  std::string name = "untouched";
  EXPECT_FALSE(WithDoor().TryGetValue(name, "Door", "Colour"));
  EXPECT_FALSE(WithDoor().TryGetValue(name, "Gate", "Name"));
  EXPECT_EQ("untouched", name);
}

TEST(AnIniFile, DistinguishesTheCaseOfNames) {
  EXPECT_FALSE(WithDoor().HasGroup("door"));
  std::string name;
  EXPECT_FALSE(WithDoor().TryGetValue(name, "Door", "name"));
}

TEST(AnIniFile, GivesItsGroupsInTheOrderOfTheirNames) {
  IniFile settings = WithDoor();
  settings.AddGroup("Attic");
  EXPECT_THAT(settings.AllGroups(),
              ElementsAre(Pair("Attic", IsEmpty()),
                          Pair("Door", ElementsAre(Pair("Name", "north"), Pair("Width", "90")))));
}

TEST(AnIniFile, IsIndependentOfItsCopies) {
  const IniFile original = WithDoor();
  IniFile copy(original);
  copy.RemoveGroup("Door");
  EXPECT_TRUE(original.HasGroup("Door"));
  copy = original;
  EXPECT_TRUE(copy.HasGroup("Door"));
  EXPECT_THAT(copy.RemovedGroups(), IsEmpty());
}

TEST(AddingAGroup, KeepsTheKeysOfOneThatIsThere) {
  IniFile settings = WithDoor();
  settings.AddGroup("Door");
  EXPECT_EQ(WithDoor().AllGroups(), settings.AllGroups());
}

TEST(AddingAGroup, TakesItsRemovalMarkAway) {
  IniFile settings;
  settings.RemoveGroup("Door");
  settings.AddGroup("Door");
  EXPECT_TRUE(settings.HasGroup("Door"));
  EXPECT_THAT(settings.RemovedGroups(), IsEmpty());
}

TEST(SettingAKey, ReplacesItsValue) {
  IniFile settings = WithDoor();
  settings.SetValue("Door", "Name", "south");
  EXPECT_EQ((Groups{{"Door", {{"Name", "south"}, {"Width", "90"}}}}), settings.AllGroups());
}

TEST(SettingAKey, TakesItsRemovalMarkAway) {
  IniFile settings = WithDoor();
  settings.RemoveKey("Door", "Name");
  settings.RemoveKey("Door", "Width");
  settings.SetValue("Door", "Name", "south");
  EXPECT_THAT(settings.RemovedKeys(), ElementsAre(Pair("Door", "Width")));
}

TEST(SettingAKey, TakesTheRemovalMarkOfItsGroupAway) {
  IniFile settings;
  settings.RemoveGroup("Door");
  settings.SetValue("Door", "Name", "south");
  EXPECT_THAT(settings.RemovedGroups(), IsEmpty());
}

TEST(RemovingAGroup, TakesItOutAndMarksIt) {
  IniFile settings = WithDoor();
  settings.RemoveGroup("Door");
  EXPECT_FALSE(settings.HasGroup("Door"));
  std::string name;
  EXPECT_FALSE(settings.TryGetValue(name, "Door", "Name"));
  EXPECT_THAT(settings.RemovedGroups(), ElementsAre("Door"));
}

TEST(RemovingAGroup, MarksOneThatIsNotThere) {
  IniFile settings;
  settings.RemoveGroup("Door");
  EXPECT_THAT(settings.RemovedGroups(), ElementsAre("Door"));
}

TEST(RemovingAKey, TakesItOutOfItsGroupAndMarksIt) {
  IniFile settings = WithDoor();
  settings.RemoveKey("Door", "Name");
  EXPECT_EQ((Groups{{"Door", {{"Width", "90"}}}}), settings.AllGroups());
  EXPECT_THAT(settings.RemovedKeys(), ElementsAre(Pair("Door", "Name")));
}

TEST(RemovingAKey, KeepsAGroupThatHasNoOther) {
  IniFile settings = WithDoor();
  settings.RemoveKey("Door", "Name");
  settings.RemoveKey("Door", "Width");
  EXPECT_TRUE(settings.HasGroup("Door"));
}

TEST(RemovingAKey, MarksOneThatIsNotThereWithoutAddingItsGroup) {
  IniFile settings;
  settings.RemoveKey("Door", "Name");
  EXPECT_FALSE(settings.HasGroup("Door"));
  EXPECT_THAT(settings.RemovedKeys(), ElementsAre(Pair("Door", "Name")));
}

TEST(Merging, AddsReplacesAndKeeps) {
  IniFile changes;
  changes.SetValue("Door", "Name", "south");
  changes.SetValue("Gate", "Name", "west");
  changes.AddGroup("Attic");
  IniFile settings = WithDoor();
  settings.MergeSettings(changes);
  EXPECT_EQ((Groups{{"Attic", {}},
                    {"Door", {{"Name", "south"}, {"Width", "90"}}},
                    {"Gate", {{"Name", "west"}}}}),
            settings.AllGroups());
}

TEST(Merging, RemovesWhatIsMarkedAsRemoved) {
  IniFile changes;
  changes.RemoveKey("Door", "Name");
  changes.RemoveGroup("Gate");
  IniFile settings = WithDoor();
  settings.SetValue("Gate", "Name", "west");
  settings.MergeSettings(changes);
  EXPECT_EQ((Groups{{"Door", {{"Width", "90"}}}}), settings.AllGroups());
}

TEST(Merging, KeepsTheMarksForTheNextMerge) {
  IniFile changes;
  changes.RemoveKey("Door", "Name");
  changes.RemoveGroup("Gate");
  IniFile collected;
  collected.MergeSettings(changes);
  EXPECT_THAT(collected.RemovedKeys(), ElementsAre(Pair("Door", "Name")));
  EXPECT_THAT(collected.RemovedGroups(), ElementsAre("Gate"));
}

TEST(Merging, TakesMarksOfWhatItCopiesAway) {
  IniFile collected;
  collected.RemoveKey("Door", "Name");
  collected.RemoveGroup("Attic");
  IniFile changes = WithDoor();
  changes.AddGroup("Attic");
  collected.MergeSettings(changes);
  EXPECT_THAT(collected.RemovedKeys(), IsEmpty());
  EXPECT_THAT(collected.RemovedGroups(), IsEmpty());
}

TEST(Merging, WithItselfChangesNothing) {
  IniFile settings = WithDoor();
  settings.RemoveKey("Door", "Name");
  settings.RemoveGroup("Gate");
  settings.MergeSettings(settings);
  EXPECT_EQ((Groups{{"Door", {{"Width", "90"}}}}), settings.AllGroups());
  EXPECT_THAT(settings.RemovedGroups(), ElementsAre("Gate"));
}

}  // namespace
}  // namespace core
}  // namespace tavrel
