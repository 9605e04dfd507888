// What changes in the state of a window, and the listeners that are told.
//
// An operation notes what it changes (Note). Listeners are called later, by one of two functions:
// - Show, in the middle of an operation, where the picture has to be current before the operation
//   continues: calls only the listeners of Timing::kAtOnce, which must be quick.
// - Settle, at the end of an operation: calls all listeners with what they have not received yet.
//   They may walk the program.
// Whatever starts an operation settles at its end: the table of the commands, the load, a step of
// the program check, a mark. A listener receives each change once, together with others or alone.
//
// Long work happens inside an operation. Windows are painted meanwhile and may note changes, but
// nothing settles before the work has ended, since the store may hold a part of a program. A front
// end that opens a dialog in the middle of an operation calls SettleShown before, so that what is
// shown beside the dialog agrees with the picture.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

namespace tvx {

// A set of the changes below.
class ChangeSet {
 public:
  constexpr ChangeSet() = default;
  explicit constexpr ChangeSet(uint32_t bits) : bits_(bits) {}
  constexpr bool IsEmpty() const { return bits_ == 0; }
  constexpr bool HasAny(ChangeSet of) const { return (bits_ & of.bits_) != 0; }
  constexpr bool operator==(const ChangeSet&) const = default;

  constexpr ChangeSet& operator|=(ChangeSet other) {
    bits_ |= other.bits_;
    return *this;
  }
  friend constexpr ChangeSet operator|(ChangeSet a, ChangeSet b) { return a |= b; }
  friend constexpr ChangeSet operator&(ChangeSet a, ChangeSet b) {
    a.bits_ &= b.bits_;
    return a;
  }

 private:
  uint32_t bits_ = 0;
};

struct Change {
  static constexpr ChangeSet kProgram{1 << 0};  // another program fills the store
  static constexpr ChangeSet kName{1 << 1};     // path and name of that program
  static constexpr ChangeSet kFeeds{1 << 2};    // the feeds of its moves
  static constexpr ChangeSet kOptions{1 << 3};  // the options of the working record
  static constexpr ChangeSet kView{1 << 4};     // the transform, and whether rapids are shown
  static constexpr ChangeSet kCheck{1 << 5};    // the state of a program check
  static constexpr ChangeSet kResult{1 << 6};   // the result table
  static constexpr ChangeSet kHovered{1 << 7};  // the move that the mouse rests on
  static constexpr ChangeSet kKept{1 << 8};     // the move in work
  static constexpr ChangeSet kLine{1 << 9};     // the line in work
};

// What changes with each program in the store.
inline constexpr ChangeSet kNewProgram = Change::kProgram | Change::kFeeds | Change::kCheck;
inline constexpr ChangeSet kAllChanges = kNewProgram | Change::kName | Change::kOptions |
                                         Change::kView | Change::kResult | Change::kHovered |
                                         Change::kKept | Change::kLine;

enum class Timing { kAtOnce, kSettled };

// Gets the changes since its last call, and the kind of this call: kAtOnce from Show, else
// kSettled.
//
// A listener may note changes, which the same Show or Settle delivers to the other ones, and it may
// call Show and Settle; it is not called again before it returns. It may subscribe listeners and
// end subscriptions, its own too. It must not destroy the notifier. Two listeners that note what
// the other one listens to never come to an end.
using ChangeListener = std::function<void(ChangeSet changes, Timing timing)>;

// The listener is told while this exists, which may be longer than the notifier does.
using Subscription = std::shared_ptr<void>;

class ChangeNotifier {
 public:
  ChangeNotifier() = default;
  ChangeNotifier(const ChangeNotifier&) = delete;
  ChangeNotifier& operator=(const ChangeNotifier&) = delete;

  // Adds a listener of some changes after the existing ones. It receives what is noted from now on.
  // Settle calls a listener of kAtOnce too, with what was noted after the last Show.
  [[nodiscard]] Subscription Subscribe(ChangeSet interests, Timing timing, ChangeListener listener);

  void Note(ChangeSet changes);
  void Show();
  void Settle();
  // Settles if Show has been called since the last Settle: else the picture is as the listeners
  // know it, and stays so until the operation shows what it has done.
  void SettleShown();

 private:
  struct Entry {
    ChangeSet interests;
    Timing timing;
    ChangeListener listener;
    ChangeSet pending = {};
    bool isCalled = false;
  };

  void Tell(Timing timing);

  std::vector<std::weak_ptr<Entry>> entries_;  // in the order of their subscription
  bool isShown_ = false;
};

}  // namespace tvx
