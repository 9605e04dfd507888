// The labels of a job that belong to no field (model/option_fields.h), and the forms of a restart
// position, as lists, buttons and reports show them.
#pragma once

#include "base/message.h"

namespace tvx {

inline constexpr Message kFileNameLabel{"화일명", "FileName"};
inline constexpr Message kConditionLabel{"Afa조건:", "Afa:"};
inline constexpr Message kConditionFileLabel{"조건화일", "Afa file"};

// The lists differ in the blanks around a value and in the order of the two heights.
inline constexpr Message kRestartLabel{"재전송", "Restart"};
inline constexpr Message kRestartNumber{"번호->{number}", "Num->{number}"};
inline constexpr Message kRestartBlock{"블록->{number}", "Block->{number}"};
inline constexpr Message kRestartZArea{"Z영역->({from} - {to})", "ZArea->({from} - {to})"};
inline constexpr Message kRestartPoint{"좌표->XYZ({x}, {y}, {z})", "Cood->XYZ({x}, {y}, {z})"};
inline constexpr Message kRestartTolerance{"공차->{tolerance}", "Toler->{tolerance}"};

}  // namespace tvx
