// Controls as text, and the words that name them at a prompt. Inner header of the room.
// Widths are counted in characters.
#pragma once
#include <string>
#include <vector>

#include "hote/dialogues.h"

namespace atelier {

// "Schématiser sur p/long" as one word: "SchematiserSurPLong".
std::string keywordOf(const std::wstring& label);
// The name of a control at the prompt: its label's word, else its frame's, else "Liste".
std::string nameOf(const dialogues::Control& control);
// Whether a typed text stands for the word: the same letters, its capitals, or its first three letters or more. Blanks,
// accents and case are ignored.
enum class Match { no, beginning, whole };
Match match(const std::string& typed, const std::string& word);

// The control as lines that end in a line feed; empty for buttons.
std::string textOf(const dialogues::Control& control);

// Row numbers from 1 as a user writes them, "2", "1,3-5", "*", as indexes from 0; nothing for another text.
std::optional<std::vector<int>> rowsOf(std::string_view text, int count);

}  // namespace atelier
