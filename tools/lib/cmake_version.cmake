# Fails if CMake is too old for this project.
cmake_minimum_required(VERSION 3.21)
