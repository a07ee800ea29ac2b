#include "quick/TextAlignment.h"

#include <Qt>

namespace frelta {

int qtAlignment(NSTextAlignment alignment, bool rightToLeft) {
  switch (alignment) {
    case NSTextAlignment::Center:
      return Qt::AlignHCenter;
    case NSTextAlignment::Left:
      return Qt::AlignLeft;
    case NSTextAlignment::Right:
      return Qt::AlignRight;
    case NSTextAlignment::Natural:
      break;
  }
  return rightToLeft ? Qt::AlignRight : Qt::AlignLeft;
}

}  // namespace frelta
