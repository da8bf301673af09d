/* wincheck.exe: a Windows program of the project's own that tells how it was started and what
 * it received. It appends to WINCHECK.TXT in its starting directory, UTF-8, one line each:
 *   ARG <n> <text>            each argument after the program
 *   OPEN <text> FOUND|MISSING whether each argument opens as a file
 *   CWD <directory>
 *   KEY <keys>                each key press with its modifiers: "Alt+F", "B", "Ctrl+V"
 *   PASTE <text>              the clipboard text at each Ctrl+V
 *   END <reason>              "alt-o" after Alt+O, or "timeout" after 20 seconds
 * It shows one window, which takes the keys; it ends after Alt+O or the timeout. */
#include <windows.h>
/* shellapi.h needs the types of windows.h first. */
#include <shellapi.h>
#include <stdio.h>
#include <wchar.h>

static void Line(const wchar_t* kind, const wchar_t* text)
{
    wchar_t buf[4096];
    char utf8[12288];
    int n;
    FILE* f;
    swprintf(buf, 4096, L"%ls %ls\r\n", kind, text);
    n = WideCharToMultiByte(CP_UTF8, 0, buf, -1, utf8, sizeof utf8, NULL, NULL);
    f = _wfopen(L"WINCHECK.TXT", L"ab");
    if (!f)
        return;
    if (n > 1)
        fwrite(utf8, 1, (size_t)(n - 1), f);
    fclose(f);
}

static void KeyName(WPARAM vk, wchar_t* out)
{
    out[0] = 0;
    if (GetKeyState(VK_CONTROL) & 0x8000)
        wcscat(out, L"Ctrl+");
    if (GetKeyState(VK_MENU) & 0x8000)
        wcscat(out, L"Alt+");
    if (GetKeyState(VK_SHIFT) & 0x8000)
        wcscat(out, L"Shift+");
    if ((vk >= 'A' && vk <= 'Z') || (vk >= '0' && vk <= '9')) {
        wchar_t c[2] = {(wchar_t)vk, 0};
        wcscat(out, c);
    } else if (vk == VK_RETURN) {
        wcscat(out, L"ENTER");
    } else if (vk >= VK_F1 && vk <= VK_F24) {
        wchar_t f[8];
        swprintf(f, 8, L"F%d", (int)(vk - VK_F1 + 1));
        wcscat(out, f);
    } else {
        wchar_t h[8];
        swprintf(h, 8, L"VK%02X", (unsigned)vk);
        wcscat(out, h);
    }
}

static void Paste(HWND w)
{
    HANDLE h;
    const wchar_t* text;
    if (!OpenClipboard(w)) {
        Line(L"PASTE", L"!noclipboard");
        return;
    }
    h = GetClipboardData(CF_UNICODETEXT);
    text = h ? (const wchar_t*)GlobalLock(h) : NULL;
    Line(L"PASTE", text ? text : L"!empty");
    if (text)
        GlobalUnlock(h);
    CloseClipboard();
}

static LRESULT CALLBACK Proc(HWND w, UINT m, WPARAM wp, LPARAM lp)
{
    wchar_t name[64];
    switch (m) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (wp == VK_CONTROL || wp == VK_MENU || wp == VK_SHIFT)
            return 0;
        KeyName(wp, name);
        Line(L"KEY", name);
        if (wp == 'V' && (GetKeyState(VK_CONTROL) & 0x8000))
            Paste(w);
        if (wp == 'O' && (GetKeyState(VK_MENU) & 0x8000)) {
            Line(L"END", L"alt-o");
            PostQuitMessage(0);
        }
        return 0;
    case WM_SYSKEYUP:
    case WM_SYSCHAR:
    case WM_CHAR:
        return 0; /* no menu mode: every key stays ours */
    case WM_SYSCOMMAND:
        if ((wp & 0xFFF0) == SC_KEYMENU)
            return 0;
        break;
    case WM_TIMER:
        Line(L"END", L"timeout");
        PostQuitMessage(0);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(0);
        return 0;
    }
    return DefWindowProcW(w, m, wp, lp);
}

int WINAPI WinMain(HINSTANCE inst, HINSTANCE prev, LPSTR cmd, int show)
{
    int argc = 0, i;
    wchar_t** argv = CommandLineToArgvW(GetCommandLineW(), &argc);
    wchar_t cwd[MAX_PATH], num[16];
    WNDCLASSW wc = {0};
    HWND w;
    MSG msg;
    (void)prev;
    (void)cmd;
    GetCurrentDirectoryW(MAX_PATH, cwd);
    for (i = 1; i < argc; ++i) {
        HANDLE f;
        swprintf(num, 16, L"%d", i);
        wchar_t line[2048];
        swprintf(line, 2048, L"%ls %ls", num, argv[i]);
        Line(L"ARG", line);
        f = CreateFileW(argv[i], GENERIC_READ, FILE_SHARE_READ, NULL, OPEN_EXISTING, 0, NULL);
        swprintf(line, 2048, L"%ls %ls", argv[i],
                 f == INVALID_HANDLE_VALUE ? L"MISSING" : L"FOUND");
        Line(L"OPEN", line);
        if (f != INVALID_HANDLE_VALUE)
            CloseHandle(f);
    }
    Line(L"CWD", cwd);
    wc.lpfnWndProc = Proc;
    wc.hInstance = inst;
    wc.lpszClassName = L"wincheck";
    wc.hCursor = LoadCursor(NULL, IDC_ARROW);
    RegisterClassW(&wc);
    w = CreateWindowW(L"wincheck", L"wincheck", WS_OVERLAPPEDWINDOW, 40, 40, 320, 200, NULL, NULL,
                      inst, NULL);
    ShowWindow(w, show ? show : SW_SHOWNORMAL);
    SetForegroundWindow(w);
    SetFocus(w);
    SetTimer(w, 1, 20000, NULL);
    while (GetMessageW(&msg, NULL, 0, 0) > 0) {
        TranslateMessage(&msg);
        DispatchMessageW(&msg);
    }
    return 0;
}
