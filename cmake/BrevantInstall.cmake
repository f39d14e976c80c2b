# Installation: the libraries with their CMake package and pkg-config file.
