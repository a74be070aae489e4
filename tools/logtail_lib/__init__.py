"""The parts of tools/logtail."""
