#pragma once

#include <QWidget>
#include <memory>

#include "bystanders.h"
#include "contact_sheet.h"
#include "slots/slot.h"

namespace kzq::gallery {

/// A row's state, as far as it is visible.
struct RowState {
    const char* caption;
    bool occupied = false;
    bool selected = false;       ///< import row
    const char* name = nullptr;  ///< typed for an import row, of the staged file for an export row
    bool written = false;        ///< the staged file is in the pedal
    bool renaming = false;
    bool dropping = false;  ///< a file is held over it
    bool heard = false;     ///< its waveform is known
};

/// Rows in given states; the bystanders live as long as it does.
class Rows {
  public:
    std::unique_ptr<Slot> row(std::uint8_t number, std::int32_t context, const RowState& state,
                              QWidget* parent);

  private:
    StillApplication application_;
    StillRows delegate_;
};

/// Each row in each of its states.
Shots rows();

}  // namespace kzq::gallery
