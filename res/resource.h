// Resource identifiers of the plug-in's dialog templates and controls.
#pragma once

#define IDD_PANEL 2000
