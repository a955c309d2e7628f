// Tells screen readers what the board's own controls are.
#pragma once

namespace dtb {

// Pictures are graphics, panels are groups, message boxes are alerts. Once for the application.
void InstallAccessibleRoles();

}  // namespace dtb
