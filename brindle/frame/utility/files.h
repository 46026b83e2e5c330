// Files by name: the process's paths, opening under the work path, folders, wildcards, extensions.
#pragma once

#include <cstdio>

#include "brindle/platform/base/string.h"

namespace brindle {

// The process's folders, set by the tool at its start. Each ends with its separator, since names
// are appended to it as they are: work path, folder of the program, folder of the results.
extern CString G_strWorkPath;
extern CString G_strExePath;
extern CString G_strDesPath;

// Number of files open through open_file and open_file_no_comment, decreased by close_file.
extern int JS_OpenFileNum;

// Opens G_strWorkPath + name, the two just put together, and counts it in JS_OpenFileNum. Null when
// that fails, with "打不开文件: %s" and the name as error 301.
std::FILE* open_file(const wchar_t* name, const wchar_t* mode);
// The same without a message.
std::FILE* open_file_no_comment(const wchar_t* name, const wchar_t* mode);
// Closes what open_file opened and counts it off. Returns fclose's result; a null stream is 0.
int close_file(std::FILE* stream);

// 1 when `path`, taken as it is, can be opened for reading, else 0.
int if_file_exist(const wchar_t* path);

// Creates one folder, whose parent must be there. 1 also when it exists already, else 0.
int MakeDirectory(const CString& path);
// Creates a folder with all folders above it that are missing. 1 also when it exists already.
int MakeMutDir(const wchar_t* path);

// Whether a file name fits a pattern: `*` stands for any characters, `?` for one, "*.*" for every
// name. Letters A to Z fit in either case. Takes no more than the product of the two lengths.
bool fits_pattern(const wchar_t* name, const wchar_t* pattern);

// Removes the files of the folder, not of those below it, whose names fit the pattern. 1 when every
// one went, also when none fits; 0 when the folder can't be read or a file stayed.
int remove_files(const CString& dir, const wchar_t* pattern);

// Copies the files of the folder `from`, not of those below it, whose names fit the pattern to the
// folder `to`, which is made where it is missing. A file of the same name is replaced only when its
// copy is complete. 1 when every one was copied, also when none fits; 0 when a folder can't be
// read or made, or when a file couldn't be copied, which is told as error 301; the others are
// copied.
int copy_files(const CString& from, const CString& to, const wchar_t* pattern);

// Forces the extension, given with or without its dot; an empty one removes it. Path and extension
// come back in capitals throughout: "c:\a\b.txt" and "dat" give "C:\A\B.DAT". Both separators of
// folders are understood; a dot in a folder's name begins no extension.
CString ConfirmFileExt(const CString& path, const CString& ext);

// 1 when both files can be read and hold the same bytes, else 0.
int FileCompare(const wchar_t* path1, const wchar_t* path2);

}  // namespace brindle
