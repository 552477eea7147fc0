// Keeps the room's library non-empty until its first source arrives.
