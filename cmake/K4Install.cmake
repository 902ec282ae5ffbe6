# Installs the libraries, their headers and a package that find_package(k4cmndlg) finds.
