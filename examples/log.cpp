// A log: protocol bytes as text, a message of two lines, and what stands in the file afterwards.

#include <vantor/LogFile.h>

#include <cstdio>

namespace
{
using namespace vantor;

// The log's characters, its mark left out.
ustring ReadLog(const wchar_t* path)
{
    CFile file(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    ustring text(std::wstring(static_cast<std::size_t>(file.GetLength()) / sizeof(wchar_t), L'\0'));
    unsigned int done = 0;
    file.Read(text.data(), static_cast<unsigned int>(text.size() * sizeof(wchar_t)), done, nullptr);
    return text.substr(1);
}
}   // namespace

int main()
{
    ustring folder, path;
    CFile::GetTempPathW(folder);
    CFile::GetTempFileNameW(folder.c_str(), L"log", 0, path);

    CLogFile log;
    if (!log.Open(path.c_str()))
        return 1;
    const unsigned char frame[] = {0x02, '*', 'I', 'D', 'N', '?', 0x0D, 0x03};
    log.Write(L"sent %S (%S)", CLogFile::Bin2Hex(frame, sizeof frame).c_str(),
              CLogFile::Bin2Str(frame, sizeof frame).c_str());
    log.Write(L"the receiver is silent\nattempt %d of %d", 2, 3);   // two records with one stamp

    std::vector<ustring> records;
    ustring::split(ReadLog(path.c_str()).c_str(), L"\r\n", records, false);
    for (const ustring& record : records)   // the stamp is the time of now: only what stands behind it
        std::puts(ustring::WideCharToMultiByte(record.substr(L"] ", nullptr, false, false), CP_UTF8, 0).c_str());

    log.Close();
    std::puts(log.Write(L"too late") ? "written" : "closed: not written");
    CFile::Remove(path.c_str());
}
