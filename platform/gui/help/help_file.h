/// Help files: UTF-8 text in sections. A line "[1114] Title" opens topic 1114; the lines up to the
/// next such line are its text. A blank line ends a paragraph, a line that begins with "- " an item
/// of a list; other line ends are blanks. What stands before the first topic is a comment.
#pragma once

#include <windef.h>

#include <filesystem>
#include <string>

namespace platform {

/// The text of a topic: its title, an empty line, its paragraphs and list items each on a line,
/// paragraphs divided by an empty line. Empty when the file or the topic is missing. A file beyond
/// 1 MB is not read; a text is cut at 16384 characters.
std::u16string ReadHelpTopic(const std::filesystem::path& file, DWORD topic);

}  // namespace platform
