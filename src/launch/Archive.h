#pragma once
// The archive service: six procedures that build the command lines of the four archiver
// libraries, and two dispatchers that choose one by the archive's extension. The libraries
// are the entries of ArcLibrary.h; a non-zero result of theirs is handed back unreported.
#include <QObject>
#include <QString>
#include <cstdint>

namespace tv {

// 16-bit flags: true is all ones. A test for true accepts only -1, one for false only 0.
inline constexpr int16_t kArcTrue = -1;
inline constexpr int16_t kArcFalse = 0;

// Size of the output buffer handed to each library call (allocated anew, never read).
inline constexpr int kArcOutputSize = 1024;

// `hWnd` is the owner of the library's progress window (the main window), or null.
int32_t LzhPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress);
int32_t ZipPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress);
int32_t CabPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress);
int32_t LzhMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress);
int32_t ZipMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress);
int32_t CabMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress);

// By GetFileExt(ArcPath): "LZH", "ZIP", "CAB"; any other extension returns -1 without a call.
int32_t ArcPack(QObject* hWnd, const QString& ArcPath, const QString& SrcDir, int16_t ShowProgress);
int32_t ArcMelt(QObject* hWnd, const QString& ArcPath, const QString& DestDir, const QString& Mask,
                int16_t Overwrite, int16_t ShowProgress);

} // namespace tv
