#include "app/FailureBar.h"

#include "app/FailureText.h"
#include "app/ShownPage.h"

namespace frelta {

namespace {

/// Long enough to be read to the end by a screen reader.
constexpr std::chrono::seconds kShownFor{10};

bool isOfReading(const Failure& failure) {
  return failure.operation == Failure::Operation::Read ||
         failure.operation == Failure::Operation::Understand;
}

/// Pages make folders whenever they appear; what they show does not depend on it.
bool isOfAChange(const Failure& failure) {
  return failure.operation == Failure::Operation::Write ||
         failure.operation == Failure::Operation::Remove;
}

}  // namespace

FailureBar::FailureBar(const FailureReports& reports, WindowNotes& notes,
                       UINavigationController& navigation)
    : navigation_(navigation), note_(notes) {
  connect(&reports, &FailureReports::reported, this, &FailureBar::tell);
}

void FailureBar::tell(const Failure& failure) {
  const QString text = textOfFailure(failure);
  if (isOfReading(failure)) {
    if (saidOfReading_.contains(text)) return;
    saidOfReading_.insert(text);
  }
  // One cause is said once, but each change that failed is taken back.
  if (note_.text() != text) note_.showFor(kShownFor, text);
  if (isOfAChange(failure)) showWhatIsStored(navigation_);
}

}  // namespace frelta
