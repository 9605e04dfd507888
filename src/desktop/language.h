// The language in which the program speaks to its user: Korean, in which its texts are written, or
// English, by the translations that the program carries in itself.
#pragma once

#include <QString>
#include <cstdint>
#include <string_view>

namespace tvx {

// From now on Translated speaks a language of model/labels.h.
void UseLanguage(int32_t language);

// A text of the program's own, in the language in use. Its numbers may be any: the translation of
// "소요시간 %1 min" serves for "소요시간 1.5 min". A text without a translation comes back as it
// is. Not for what the user has named or typed: a folder "설정" keeps its name in every language.
QString Translated(std::string_view text);

}  // namespace tvx
