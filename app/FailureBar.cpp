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

bool isOfWriting(const Failure& failure) {
  return failure.operation == Failure::Operation::Write ||
         failure.operation == Failure::Operation::Remove ||
         failure.operation == Failure::Operation::CreateFolder;
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
  // What a page does about a failed change may fail alike: one cause is said once.
  if (note_.text() == text) return;
  note_.showFor(kShownFor, text);
  if (isOfWriting(failure)) showWhatIsStored(navigation_);
}

}  // namespace frelta
