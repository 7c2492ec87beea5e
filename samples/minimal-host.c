/*
 * The smallest host of libvarcfg_18.dll, written from INTEGRATING.md alone: it carries the panel's
 * requests to mdvr-sim over TCP (a 4-byte little-endian length, then the text, each frame in one write),
 * shows the panel for a while and closes it in the documented order.
 *
 *   minimal-host.exe PORT [MILLISECONDS]
 *
 * Prints how many requests the recorder answered; exits 0 when at least one was, 1 otherwise.
 */
#include <winsock2.h>
#include <ws2tcpip.h>
#include <windows.h>

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "varcfg/host_api.h"

static SOCKET recorder = INVALID_SOCKET;
static int answered = 0;

static int ReceiveAll(char* bytes, int count) {
    while (count > 0) {
        int got = recv(recorder, bytes, count, 0);
        if (got <= 0) return 0;
        bytes += got;
        count -= got;
    }
    return 1;
}

/* The request callback: one frame out, one frame back; 0 when the recorder gave no answer. */
static int32_t OnRequest(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply, void* context) {
    char frame[4 + MDVR_MSG_TEXT_USED];
    unsigned char header[4];
    uint32_t length = (uint32_t)strlen(request->data);
    uint32_t replyLength;
    char* text;
    (void)context;
    if (mode != MDVR_REQUEST_EXCHANGE || recorder == INVALID_SOCKET || length > MDVR_MSG_TEXT_USED) return 0;
    frame[0] = (char)(length & 0xff);
    frame[1] = (char)((length >> 8) & 0xff);
    frame[2] = (char)((length >> 16) & 0xff);
    frame[3] = (char)((length >> 24) & 0xff);
    memcpy(frame + 4, request->data, length);
    if (send(recorder, frame, (int)(4 + length), 0) != (int)(4 + length)) return 0;
    if (!ReceiveAll((char*)header, 4)) return 0;
    replyLength = header[0] | (uint32_t)header[1] << 8 | (uint32_t)header[2] << 16 | (uint32_t)header[3] << 24;
    text = (char*)malloc(replyLength + 1);
    if (text == NULL || !ReceiveAll(text, (int)replyLength)) {
        free(text);
        return 0;
    }
    /* At most 2047 bytes and a terminating zero: the panel reads up to the zero. */
    if (replyLength > MDVR_MSG_TEXT_USED - 1) replyLength = MDVR_MSG_TEXT_USED - 1;
    memcpy(reply->data, text, replyLength);
    reply->data[replyLength] = '\0';
    reply->length = (int32_t)replyLength;
    free(text);
    ++answered;
    return 1;
}

static int32_t OnConfigFile(int32_t mode, const char* path, void* context) {
    (void)mode;
    (void)path;
    (void)context;
    return 0;
}

static int Connect(const char* port) {
    WSADATA winsock;
    struct sockaddr_in address;
    int noDelay = 1;
    if (WSAStartup(MAKEWORD(2, 2), &winsock) != 0) return 0;
    recorder = socket(AF_INET, SOCK_STREAM, IPPROTO_TCP);
    if (recorder == INVALID_SOCKET) return 0;
    setsockopt(recorder, IPPROTO_TCP, TCP_NODELAY, (const char*)&noDelay, sizeof noDelay);
    memset(&address, 0, sizeof address);
    address.sin_family = AF_INET;
    address.sin_port = htons((u_short)atoi(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return connect(recorder, (struct sockaddr*)&address, sizeof address) == 0;
}

/* Through void (*)(void), the type C allows any function pointer to pass. */
#define BIND(type, name) type name = (type)(void (*)(void))GetProcAddress(dll, #name)

int main(int argc, char** argv) {
    HMODULE dll;
    HWND window;
    MSG message;
    RECT size = {0, 0, MDVR_DISPLAY_WIDTH, MDVR_DISPLAY_HEIGHT};
    const DWORD showFor = argc > 2 ? (DWORD)atoi(argv[2]) : 2000;
    DWORD start;
    if (argc < 2 || !Connect(argv[1])) {
        fprintf(stderr, "minimal-host: no recorder on 127.0.0.1:%s\n", argc > 1 ? argv[1] : "?");
        return 1;
    }

    /* 1. Load the plug-in and ask whether it serves this host. */
    dll = LoadLibraryA("libvarcfg_18.dll");
    if (dll == NULL) return 1;
    {
        BIND(MDVR_IsEnableDllFn, MDVR_IsEnableDll);
        BIND(MDVR_SetConfigFunctionFn, MDVR_SetConfigFunction);
        BIND(MDVR_SetLangPathFn, MDVR_SetLangPath);
        BIND(MDVR_GetDisplaySizeFn, MDVR_GetDisplayWidth);
        BIND(MDVR_GetDisplaySizeFn, MDVR_GetDisplayHeight);
        BIND(MDVR_DisplayConfigFn, MDVR_DisplayConfig);
        BIND(MDVR_DllPreTranslateMessageFn, MDVR_DllPreTranslateMessage);
        if (MDVR_IsEnableDll == NULL || MDVR_IsEnableDll(MDVR_INTERFACE_KIND, MDVR_INTERFACE_VERSION) != 1) return 1;

        /* 2. The callbacks before any panel; 3. the language file, which also starts the log. */
        MDVR_SetConfigFunction(OnRequest, OnConfigFile, NULL);
        MDVR_SetLangPath("Lang\\English.ini");

        /* 4. A window of the panel's size, and the panel in it. */
        size.right = MDVR_GetDisplayWidth();
        size.bottom = MDVR_GetDisplayHeight();
        AdjustWindowRect(&size, WS_OVERLAPPEDWINDOW, FALSE);
        {
            WNDCLASSA windowClass;
            memset(&windowClass, 0, sizeof windowClass);
            windowClass.lpfnWndProc = DefWindowProcA;
            windowClass.hInstance = GetModuleHandleA(NULL);
            windowClass.hbrBackground = (HBRUSH)(COLOR_WINDOW + 1);
            windowClass.lpszClassName = "MinimalHost";
            RegisterClassA(&windowClass);
        }
        window = CreateWindowA("MinimalHost", "minimal host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CW_USEDEFAULT,
                               CW_USEDEFAULT, size.right - size.left, size.bottom - size.top, NULL, NULL,
                               GetModuleHandleA(NULL), NULL);
        MDVR_DisplayConfig(window, NULL);

        /* 5. The message loop, offering every message to the panel first. */
        start = GetTickCount();
        while (GetTickCount() - start < showFor) {
            while (PeekMessageA(&message, NULL, 0, 0, PM_REMOVE)) {
                if (!MDVR_DllPreTranslateMessage(&message)) {
                    TranslateMessage(&message);
                    DispatchMessageA(&message);
                }
            }
            Sleep(10);
        }
    }

    /* 6. Close the panel by destroying its parent window; unload the plug-in only after that. */
    DestroyWindow(window);
    FreeLibrary(dll);
    closesocket(recorder);
    WSACleanup();
    printf("requests answered: %d\n", answered);
    return answered > 0 ? 0 : 1;
}
