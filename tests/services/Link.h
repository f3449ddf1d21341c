// Opens a shortcut with the platform's own link object.

#ifndef VANTOR_TEST_SERVICES_LINK_H
#define VANTOR_TEST_SERVICES_LINK_H

#include "Threads.h"

#include <vantor/Strings.h>

#include <gtest/gtest.h>

#include <shlguid.h>
#include <shlobj.h>

struct CLink
{
    explicit CLink(const vantor::ustring& file)
    {
        OnNewThread([&] { Read(file.c_str()); });
    }

    bool opens = false;
    bool resolves = false;   // to something that exists
    vantor::ustring target;
    vantor::ustring listed;   // by its identifier list
    vantor::ustring arguments;

private:
    void Read(const wchar_t* file)
    {
        ASSERT_EQ(S_OK, ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
        void* object = nullptr;
        ASSERT_EQ(S_OK, ::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW, &object));
        auto* const link = static_cast<IShellLinkW*>(object);
        ASSERT_EQ(S_OK, link->QueryInterface(IID_IPersistFile, &object));
        auto* const persistent = static_cast<IPersistFile*>(object);

        opens = persistent->Load(file, STGM_READ) == S_OK;
        wchar_t text[1024] = {};
        if (opens && link->GetPath(text, 1024, nullptr, 0) == S_OK)
            target = text;
        text[0] = 0;
        if (opens && link->GetArguments(text, 1024) == S_OK)
            arguments = text;
        PIDLIST_ABSOLUTE list = nullptr;
        if (opens && link->GetIDList(&list) == S_OK && ::SHGetPathFromIDListW(list, text))
            listed = text;
        ::CoTaskMemFree(list);
        resolves = opens && link->Resolve(nullptr, SLR_NO_UI | SLR_NOUPDATE) == S_OK &&
                   ::GetFileAttributesW(listed.c_str()) != INVALID_FILE_ATTRIBUTES;

        persistent->Release();
        link->Release();
        ::CoUninitialize();
    }
};

#endif
