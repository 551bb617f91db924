#pragma once

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/BlankingModel.h"
#include "tests/platform/LoadedBlanking.h"
#include "tests/support/Figures.h"

namespace tests {

/// One case: what each subscriber does, and from which state.
struct ActingCase {
  std::vector<Action> actions;
  bool hasRegions;
  bool startsByChange;  // whether the first of the two dispatches is a change
  Refused refused;
};

/// The library with subscribers that act on it, as `BlankingModel` expects them to.
class ActingSubscribers : public LoadedBlanking {
 protected:
  struct Subscriber {
    ActingSubscribers* all;
    int number;
    Action action;
  };

  void Load(const ActingCase& one) {
    LoadAlone();
    if (one.hasRegions) Store({GreenRegion()});
    m_library->Start();
    m_callback = fakes::Platform::Instance().subscriptions.front().first;
    for (int number = 0; number <= kFirstSubscribers; ++number) {
      At(number) = {this, number, Action::kNone};
      if (number < kFirstSubscribers) m_library->Subscribe(&Hear, &At(number));
    }
    for (int number = 0; number < kFirstSubscribers; ++number)
      At(number).action = one.actions[static_cast<std::size_t>(number)];
    Store({RedRegion(), GreenRegion(), BlueRegion()});
    fakes::CallLog::Instance().Clear();
    Refuse(one.refused);
  }

  // The operations, as the model has them: what they throw is their result.

  Out Change() {
    return Thrown([&] { Deliver(m_change); });
  }
  Out Configure() {
    return Thrown([&] { m_library->SetConfiguration(m_configuration); });
  }
  Out Subscribe(int number) {
    return Thrown([&] { m_library->Subscribe(&Hear, &At(number)); });
  }
  Out Start() {
    return Thrown([&] { m_library->Start(); });
  }
  Out Stop() {
    return Thrown([&] { m_library->Stop(); });
  }

  /// All calls but those that read settings.
  static Calls CallsInLog() {
    Calls calls = fakes::CallLog::Instance().Calls();
    const auto isRead = [](const std::string& call) { return call.rfind("IniFile::", 0) == 0; };
    calls.erase(std::remove_if(calls.begin(), calls.end(), isRead), calls.end());
    return calls;
  }

  void Check(const ActingCase& one) {
    Load(one);
    BlankingModel model(one.actions, one.hasRegions ? 1 : 0, one.refused);
    const std::vector<Out> expected = Play(model, one.startsByChange);
    EXPECT_EQ(expected, Play(*this, one.startsByChange)) << Text(one);
    EXPECT_EQ(model.Log(), CallsInLog()) << Text(one);
    Count("compound_cases");
  }

 private:
  Subscriber& At(int number) { return m_subscribers[static_cast<std::size_t>(number)]; }

  /// Two dispatches, and then what shows the state that they have left.
  template <typename Blanking>
  static std::vector<Out> Play(Blanking& blanking, bool startsByChange) {
    std::vector<Out> out;
    out.push_back(startsByChange ? blanking.Change() : blanking.Configure());
    out.push_back(startsByChange ? blanking.Configure() : blanking.Change());
    out.push_back(blanking.Subscribe(kFirstSubscribers));
    out.push_back(blanking.Start());
    out.push_back(blanking.Change());
    out.push_back(blanking.Stop());
    return out;
  }

  static std::string Text(const ActingCase& one) {
    std::string text = NameOf(one.refused) + (one.hasRegions ? " regions" : "") +
                       (one.startsByChange ? " change first" : "") + " actions";
    for (const Action action : one.actions) text += " " + std::to_string(static_cast<int>(action));
    return text;
  }

  template <typename Operation>
  static Out Thrown(Operation operation) {
    try {
      operation();
    } catch (const fakes::Failure&) {
      return Out::kFailure;
    } catch (const int&) {
      return Out::kNumber;
    }
    return Out::kNone;
  }

  static int Hear(void* context, int /*kind*/, void* data, int /*size*/) {
    auto& subscriber = *static_cast<Subscriber*>(context);
    const auto& record = *static_cast<const tagWindowBlankingRegions*>(data);
    fakes::CallLog::Instance().Note(CallOf(subscriber.number, record.count));
    const Action action = subscriber.action;
    subscriber.action = Action::kNone;
    subscriber.all->Act(action, subscriber.number);
    return 0;
  }

  void Unsubscribe(int number) const {
    Subscriber other = {};
    const bool exists = number >= 0 && number <= kFirstSubscribers;
    const auto* context = exists ? &m_subscribers[static_cast<std::size_t>(number)] : &other;
    m_library->Unsubscribe(&Hear, const_cast<Subscriber*>(context));
  }

  void Act(Action action, int number) const {
    switch (action) {
      case Action::kSubscribe:
        return m_library->Subscribe(&Hear, const_cast<Subscriber*>(&m_subscribers.back()));
      case Action::kUnsubscribeItself:
        return Unsubscribe(number);
      case Action::kUnsubscribeEarlier:
        return Unsubscribe(number - 1);
      case Action::kUnsubscribeLater:
        return Unsubscribe(number + 1);
      case Action::kThrow:
        throw fakes::Failure("a subscriber's");
      case Action::kThrowNumber:
        throw 7;
      case Action::kStart:
        return m_library->Start();
      case Action::kStop:
        return m_library->Stop();
      case Action::kConfigure:
        return m_library->SetConfiguration(m_configuration);
      case Action::kChange:
        return Deliver(m_change);
      default:
        return ActOnSubscription(action);
    }
  }

  void ActOnSubscription(Action action) const {
    if (action == Action::kNone) return;
    if (action == Action::kStopThatFails)
      fakes::CallLog::Instance().FailAt("TavrelSettingsClient::UnSubscribe", 1);
    if (action == Action::kStopAndStartThatFails)
      fakes::CallLog::Instance().FailAt("TavrelSettingsClient::GetSettings", 1);
    m_library->Stop();
    if (action != Action::kStopThatFails) m_library->Start();
  }

  static tagWindowBlankingRegions Configuration() {
    tagWindowBlankingRegions regions = {};
    regions.count = kConfiguredRegions;
    return regions;
  }

  const IniFile m_change = SwitchedOn({RedRegion(), BlueRegion()});
  const tagWindowBlankingRegions m_configuration = Configuration();
  std::array<Subscriber, kFirstSubscribers + 1> m_subscribers = {};
};

}  // namespace tests
