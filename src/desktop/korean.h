// What a program in Korean needs of a desktop that is not set up for it.
#pragma once

namespace tvx {

// A font with Hangul for all texts, and the texts of the toolkit's own dialogs in Korean, as far as
// they are installed. Called once, before the first window.
void SetUpKorean();

}  // namespace tvx
