#pragma once
#include "core/platform.h"

#include <QString>

#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace sm::desktop {

/// A message box in the voice of its title; waits for OK.
void Show_Box(QWidget* parent, const QString& title, const QString& text);
/// Yes or no; closing it is no.
bool Ask_Box(QWidget* parent, const QString& title, const QString& text);
/// Yes, no, or nothing: cancelled, which closing it is too.
std::optional<bool> Ask_Box_Or_Cancel(QWidget* parent, const QString& title, const QString& text);
/// The index of a chosen line, -1 for none.
int Ask_List(QWidget* parent, const QString& title, const std::vector<std::string>& lines);
/// Chosen path, empty when cancelled.
std::string Ask_File_Box(QWidget* parent, const File_Request& request);

/// A sheet of lines ("caption: value" in two columns) that stays open beside the work; another call with the same
/// title fills the same sheet.
void Show_Sheet(QWidget* parent, const QString& title, const std::vector<std::string>& lines);
/// Closes the sheets that tell of the game; help stays.
void Close_Sheets(QWidget* parent);
/// The keyboard list: key and meaning with a tab between.
void Show_Key_Sheet(QWidget* parent, const QString& title, const std::vector<std::string>& lines);
/// A help text, simple Markdown, from a file of the program folder.
void Show_Help_Sheet(QWidget* parent, const QString& title, const std::string& file);

}   // namespace sm::desktop
