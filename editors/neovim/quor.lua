-- Decks of reservoir simulators in Neovim 0.7 and later. Copy it to ~/.config/nvim/lua/ and call, in init.lua:
--   require("quor").setup()
-- Settings of a project, as its simulator, are in its quor.toml; setup({ simulator = "Carrow" }) takes precedence.

local quor = {}

local endings = { "data", "DATA", "inc", "INC", "grdecl", "GRDECL", "sch", "SCH" }

-- One server for all decks below a folder with quor.toml, or with .git, and one without a folder for all others: with the
-- folder of an included file the server would not look for its deck above that folder.
local function root_of(path)
  local folder = vim.fn.fnamemodify(path, ":p:h")
  for _, mark in ipairs({ "quor.toml", ".git" }) do
    local found = vim.fn.findfile(mark, folder .. ";")
    if found == "" then
      found = vim.fn.finddir(mark, folder .. ";")
    end
    if found ~= "" then
      return vim.fn.fnamemodify(found, ":p:h")
    end
  end
  return nil
end

local clients = {}

local function attach(settings)
  local root = root_of(vim.api.nvim_buf_get_name(0))
  local key = root or ""
  local known = clients[key] and vim.lsp.get_client_by_id(clients[key]) -- one that is starting too
  if not known then
    clients[key] = vim.lsp.start_client({
      name = "quor",
      cmd = { settings.path or "quor", "language-server" },
      root_dir = root,
      init_options = {
        simulator = settings.simulator,
        mode = settings.mode,
        root = settings.root,
        strict = settings.strict,
        variables = settings.variables,
      },
      on_attach = settings.on_attach,
    })
  end
  if clients[key] then
    vim.lsp.buf_attach_client(0, clients[key])
  end
end

local fileType = "quor-deck"

-- Documents of keywords are read once, when the server starts.
local function restart(settings)
  for key, client in pairs(clients) do
    vim.lsp.stop_client(client)
    clients[key] = nil
  end
  for _, buffer in ipairs(vim.api.nvim_list_bufs()) do
    if vim.api.nvim_buf_is_loaded(buffer) and vim.bo[buffer].filetype == fileType then
      vim.api.nvim_buf_call(buffer, function()
        attach(settings)
      end)
    end
  end
end

-- `settings`: path of the program, simulator, mode, root, strict, variables; `on_attach` for your own keys.
function quor.setup(settings)
  settings = settings or {}
  local group = vim.api.nvim_create_augroup("quor", { clear = true })
  for _, ending in ipairs(endings) do
    vim.api.nvim_create_autocmd({ "BufRead", "BufNewFile" }, {
      group = group,
      pattern = "*." .. ending,
      callback = function()
        vim.bo.filetype = fileType
      end,
    })
  end
  vim.api.nvim_create_autocmd("FileType", {
    group = group,
    pattern = fileType,
    callback = function()
      vim.bo.commentstring = "-- %s"
      vim.bo.omnifunc = "v:lua.vim.lsp.omnifunc"
      attach(settings)
    end,
  })
  vim.api.nvim_create_user_command("QuorRestart", function()
    restart(settings)
  end, { desc = "Restart the server of decks" })
end

return quor
