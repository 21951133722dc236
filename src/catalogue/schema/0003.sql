-- Who an album is by, where that isn't the artist of each song; its disc; and when the record was added.
ALTER TABLE tblContacts ADD COLUMN AlbumArtist TEXT(255) COLLATE DAO;
ALTER TABLE tblContacts ADD COLUMN Disc TEXT(10) COLLATE DAO;
ALTER TABLE tblContacts ADD COLUMN DateAdded DATETIME TEXT;
