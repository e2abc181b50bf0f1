#pragma once

namespace vond::standalone {

/// Base of an `Object` that is to be found at any end of the process: all that live are linked to
/// each other, in the order in which they were made. No container is in between that would be
/// destroyed earlier, or change in more than one step under a handler of signals.
template <typename Object>
class Listed {
 public:
  Listed(const Listed&) = delete;
  Listed& operator=(const Listed&) = delete;

 protected:
  Listed() noexcept { *place_of(nullptr) = this; }
  ~Listed() { *place_of(this) = next_; }

  template <typename Visit>
  static void for_each(Visit visit) {
    for (Listed* listed = first; listed != nullptr; listed = listed->next_) {
      visit(static_cast<Object&>(*listed));
    }
  }

 private:
  /// Returns the link that leads to `listed`; to nothing leads the last one.
  static Listed** place_of(const Listed* listed) {
    Listed** place = &first;
    while (*place != listed) {
      place = &(*place)->next_;
    }
    return place;
  }

  static inline Listed* first = nullptr;
  Listed* next_ = nullptr;
};

}  // namespace vond::standalone
