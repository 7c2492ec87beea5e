// CTraceFile2: the plug-in's log. One time-stamped line per event, appended to "<folder><log name>.log".
// It never records password texts: request texts are written through Redact.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

class CTraceFile2 {
public:
    // Created on first use; the module binds it to its folder then.
    static CTraceFile2& Instance();
    // The instance if it was created, else null: nothing is logged before the host names the log.
    static CTraceFile2* Existing();

    // Folder the log file is written in, ending with a path separator.
    void SetFolder(std::wstring folder);
    void SetLogName(std::string_view name);
    std::wstring FilePath() const;

    // printf-style; the line gets a local time stamp and a line end.
    void Write(const char* format, ...)
#if defined(__GNUC__)
        __attribute__((format(printf, 2, 3)))
#endif
        ;

    // A diagnostic line ("CConfig_Task::ParseResponseMsgResult, Result is not 1.\n"): printed on standard
    // output as it stands, and logged once the log exists.
    static void Diagnose(const std::string& line);

    // Replaces the value of every attribute whose name speaks of a password (passwd, password, pwd;
    // any letter case) with "***".
    static std::string Redact(std::string_view xmlText);

private:
    CTraceFile2() = default;

    std::wstring folder_;
    std::string logName_;
};
