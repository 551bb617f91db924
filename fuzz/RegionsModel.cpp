#include "fuzz/RegionsModel.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace fuzz {
namespace {

constexpr unsigned kMostRegions = 32;

/// A key of a group; null if it is missing.
const std::string* Find(const Groups& groups, const std::string& group, const char* key) {
  const auto keys = groups.find(group);
  if (keys == groups.end()) return nullptr;
  const auto value = keys->second.find(key);
  return value == keys->second.end() ? nullptr : &value->second;
}

bool IsEnabled(const Groups& groups) {
  const std::string* const enabled = Find(groups, kMainGroup, "Enabled");
  return enabled && *enabled == "true";
}

/// Reads a part of a colour, modulo 256.
///
/// @return false if it is no number, which the platform refuses to read
bool ReadPart(const Groups& groups, const std::string& group, const char* key, int& part) {
  const std::string* const text = Find(groups, group, key);
  part = 0;
  if (!text) return true;
  char* end = nullptr;
  const long long number = std::strtoll(text->c_str(), &end, 10);
  if (end == text->c_str() || number != static_cast<int>(number)) return false;
  part = static_cast<int>(((number % 256) + 256) % 256);
  return true;
}

int Scaled(int sum, int offset) {
  return static_cast<int>(std::floor((sum + 128) / 256.0)) + offset;
}

bool ReadColour(const Groups& groups, const std::string& group, tagWindowBlankingRegion& colour) {
  int r = 0;
  int g = 0;
  int b = 0;
  int a = 0;
  if (!ReadPart(groups, group, "ColorR", r) || !ReadPart(groups, group, "ColorG", g)) return false;
  if (!ReadPart(groups, group, "ColorB", b) || !ReadPart(groups, group, "ColorA", a)) return false;
  colour.y = Scaled(66 * r + 129 * g + 25 * b, 16);
  colour.u = Scaled(112 * b - 38 * r - 74 * g, 128);
  colour.v = Scaled(112 * r - 94 * g - 18 * b, 128);
  return true;
}

}  // namespace

std::string RegionGroup(unsigned number) {
  return "Imaging/WindowBlanking/Region#" + std::to_string(number);
}

bool operator==(const Delivery& one, const Delivery& other) {
  return one.subscriber == other.subscriber &&
         std::memcmp(&one.record, &other.record, sizeof one.record) == 0;
}

bool RegionsModel::Start(const Groups& stored, Failure failure) {
  if (m_isStarted) return false;
  if (failure == Failure::kReading) return true;
  m_settings = stored;
  if (failure == Failure::kSubscribing) return true;
  Refresh(failure);
  m_isStarted = true;
  return false;
}

bool RegionsModel::Stop(Failure failure) {
  if (!m_isStarted) return false;
  m_isStarted = failure == Failure::kUnsubscribing;
  return m_isStarted;
}

void RegionsModel::Change(const Groups& settings, Failure failure) {
  if (failure == Failure::kMerging) return;
  m_settings = settings;
  Refresh(failure);
  DeliverToAll(m_record);
}

bool RegionsModel::Subscribe(int subscriber) {
  m_subscribers.push_back(subscriber);
  return m_record.count > 0 && Deliver(subscriber, m_record);
}

void RegionsModel::Unsubscribe(int subscriber) {
  const auto found = std::find(m_subscribers.begin(), m_subscribers.end(), subscriber);
  if (found != m_subscribers.end()) m_subscribers.erase(found);
}

bool RegionsModel::SetConfiguration(const tagWindowBlankingRegions& record) {
  return record.count > 0 && DeliverToAll(record);
}

/// Gives false if looking for a group failed; those found before are counted then.
bool RegionsModel::CountGroups(Failure failure) {
  m_groupCount = 0;
  for (unsigned number = 1; number <= kMostRegions; ++number) {
    if (failure == Failure::kLookingForGroup && number == m_failingGroup) return false;
    if (m_settings.count(RegionGroup(number)) == 0) return true;
    m_groupCount = number;
  }
  return true;
}

void RegionsModel::Refresh(Failure failure) {
  const bool isEnabled = IsEnabled(m_settings);
  if (isEnabled && !CountGroups(failure)) return;
  if (m_groupCount == 0) return;
  std::vector<tagWindowBlankingRegion> colours;
  for (unsigned number = 1; isEnabled && number <= m_groupCount; ++number) {
    const std::string* const name = Find(m_settings, RegionGroup(number), "Name");
    if (!name || *name == "Empty") continue;
    colours.emplace_back();
    if (!ReadColour(m_settings, RegionGroup(number), colours.back())) return;
  }
  if (colours.size() == kMostRegions) return;
  m_record.count = static_cast<unsigned>(colours.size());
  std::copy(colours.begin(), colours.end(), std::begin(m_record.regions));
}

bool RegionsModel::Deliver(int subscriber, const tagWindowBlankingRegions& record) {
  if (subscriber >= kNeverCalled) return false;
  m_deliveries.push_back({subscriber, record});
  return subscriber >= kThrows;
}

bool RegionsModel::DeliverToAll(const tagWindowBlankingRegions& record) {
  return std::any_of(m_subscribers.begin(), m_subscribers.end(),
                     [&](int subscriber) { return Deliver(subscriber, record); });
}

}  // namespace fuzz
