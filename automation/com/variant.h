// Values as Automation passes them, and back.
#pragma once

#include "automation/com/apartment.h"
#include "automation/value.h"

namespace windows {

/// A value as a VARIANT: integers as VT_I4, booleans as VT_BOOL, what was left out as VT_ERROR, arrays as
/// arrays of VARIANT, objects as the apartment bridges them.
Variant to_variant(const automation::Value& value, Apartment& apartment);

/// The value of a VARIANT of any automation type, by reference or not, arrays of one or two dimensions among
/// them. Whole numbers beyond 32 bits become numbers; every VT_ERROR stands for what was left out. Throws
/// `result::type_mismatch` for what is not automation's.
automation::Value to_value(const VARIANT& variant, Apartment& apartment);

/// Stores a changed argument where a caller's VARIANT by reference points to, converted to the type of that
/// place. Throws `result::type_mismatch` if it can't be.
void write_back(const VARIANT& reference, const automation::Value& value, Apartment& apartment);

}  // namespace windows
