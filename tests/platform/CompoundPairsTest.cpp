#include <vector>

#include <gmock/gmock.h>

#include "tests/platform/ActingSubscribers.h"

namespace {

using tests::Action;
using tests::kFirstSubscribers;

class TwoActingSubscribers : public tests::ActingSubscribers,
                             public testing::WithParamInterface<int> {
 protected:
  void CheckPair(Action first, Action second, const int (&places)[2]) {
    std::vector<Action> actions(kFirstSubscribers, Action::kNone);
    actions[static_cast<std::size_t>(places[0])] = first;
    actions[static_cast<std::size_t>(places[1])] = second;
    for (const auto refused : tests::kRefusals) {
      for (const bool changesFirst : {false, true}) Check({actions, true, changesFirst, refused});
    }
  }
};

TEST_P(TwoActingSubscribers, ActAsInTheModel) {
  const int places[][2] = {{0, 1}, {0, 2}, {0, 3}, {1, 2}, {1, 3}, {2, 3}};
  const auto first = static_cast<Action>(GetParam());
  for (int second = 1; second < tests::kActions; ++second) {
    for (const auto& pair : places) CheckPair(first, static_cast<Action>(second), pair);
  }
}

INSTANTIATE_TEST_SUITE_P(Action, TwoActingSubscribers, testing::Range(1, tests::kActions));

}  // namespace
