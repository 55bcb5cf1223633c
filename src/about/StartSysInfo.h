#pragma once

class QWidget;
class RegistryFunctions;

/// Starts the system's own program that tells about it, as the registry's local-machine root names
/// it, or says over `window` that there is none. Throws RuntimeError if it can't be started.
void StartSysInfo(QWidget &window, const RegistryFunctions &registry);
