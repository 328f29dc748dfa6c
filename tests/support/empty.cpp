// Keeps the support library non-empty before any fake exists.
