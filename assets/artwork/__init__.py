"""The pictures of Kelvane Diamond Table, drawn from nothing but numbers."""
