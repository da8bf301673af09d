#pragma once
// The progress dialog of archive operations, owned by the window that the call names.
namespace tv {
// Installs the factory of ArcProgress.h that shows a QProgressDialog.
void InstallArcProgressDialog();
} // namespace tv
