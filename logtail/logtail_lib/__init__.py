"""The parts of logtail/logtail."""
