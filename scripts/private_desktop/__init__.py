"""A private desktop; see scripts/desktop."""
